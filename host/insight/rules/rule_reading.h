// A table of cases as it stands in its file: CSV whose head says which rule it is about. Semicolons with decimal
// commas, as an office's spreadsheet writes them, or commas.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/insight/rules/rule.h"

namespace quor {

// A column of any table: what a case is called. It may be left out.
inline constexpr char kCaseName[] = "Pastaba";

struct RuleCase {
  std::size_t line = 0;  // in which it begins, counted from 1
  std::string name = {};
  std::vector<Variant> facts = {}, expected = {};  // of each column of the rule, Null for an empty cell
};

struct RuleCases {
  const Rule* rule = nullptr;
  std::vector<RuleCase> cases = {};  // at least one
};

// Heads go by their letters, whatever their case; rows without any content are no cases. Throws quor::Error that names
// line, column and value of every fault: a head that is unknown, missing or doubled, no rows, a cell that does not
// parse, facts that do not fit together.
RuleCases read_rule_cases(std::string_view bytes);

}  // namespace quor
