// How wide the columns of a printed list are, in any one unit.
#pragma once

#include <vector>

namespace quor {

struct ColumnNeed {
  double wanted = 0;  // by the report, or by the content where the report leaves it open
  double least = 0;   // below it a number or a word is cut
};

// Wanted widths that do not fit the space are scaled down together; then a column below its least takes the rest of it
// from those that have more. Where not even the least ones fit, they are scaled down together.
std::vector<double> fitted_widths(const std::vector<ColumnNeed>& needs, double space);

}  // namespace quor
