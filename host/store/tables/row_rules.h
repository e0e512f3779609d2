// Values of one row that must go together: an end not before its begin, a charge given in one way.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/variant.h"

namespace quor {

struct RowFault {
  std::string_view column;  // where it is told
  std::string text;
};

struct RowRule {
  std::string_view table;
  std::vector<std::string_view> columns;
  // Of the columns' values, none of them Empty; nulls are nothing written.
  std::optional<RowFault> (*broken)(const std::vector<Variant>& values);
};

// All rules, of all tables.
std::span<const RowRule> row_rules();

}  // namespace quor
