#include "host/report/column_widths.h"

#include <algorithm>

namespace quor {

std::vector<double> fitted_widths(const std::vector<ColumnNeed>& needs, double space) {
  double wanted = 0, least = 0;
  for (const ColumnNeed& need : needs) {
    wanted += need.wanted;
    least += need.least;
  }
  std::vector<double> widths;
  if (least > space) {
    for (const ColumnNeed& need : needs) widths.push_back(need.least * space / least);
    return widths;
  }
  const double scale = wanted > space ? space / wanted : 1.0;
  double total = 0;
  for (const ColumnNeed& need : needs) {
    widths.push_back(std::max(need.wanted * scale, need.least));
    total += widths.back();
  }
  if (total <= space) return widths;
  const double share = (total - space) / (total - least);
  for (std::size_t i = 0; i < needs.size(); ++i) widths[i] -= (widths[i] - needs[i].least) * share;
  return widths;
}

}  // namespace quor
