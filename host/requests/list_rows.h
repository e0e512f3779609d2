// Rows of lists of objects that one SELECT in its order does not make: those of a tree, those that stand for a month or
// a year.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/store/database.h"

namespace quor {

struct ShownRow {
  std::int32_t id;
  std::int32_t parent;  // of a tree; 0 for none
  std::string sort_key;
  std::vector<std::string> cells;  // the key, then each column as it is shown
};

// Each row behind the one above it, among its neighbours as they came, its level behind its cells. A row whose object
// above is not among them is at the top, as are old ones that lie below each other in a ring.
std::vector<ShownRow> in_tree_order(std::vector<ShownRow> rows);

// The years with norms of months, the newest first: year, hours of all its stored norms, how many months have one.
std::vector<ShownRow> norm_years(Database& database);

// The months with documents or closed, the newest first: month, how it stands, people with documents.
std::vector<ShownRow> paid_months(Database& database);

// The months with worked time, the newest first: month, people with time, hours.
std::vector<ShownRow> timed_months(Database& database);

}  // namespace quor
