// A rule of pay as a table of cases states it: columns of facts, columns of results, and who answers. The rules that
// there are: rules().
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/variant.h"

namespace quor {

class RuleBench;

enum class RuleValue {
  kNumber,  // "9,7", "9.7" or a fraction, "80/168"
  kWhole,
  kDay,
  kMonth,
  kText,
  kScale,  // bands, "0-5:3 5-10:5"
};

struct RuleColumn {
  const char* caption;
  RuleValue value;
  bool optional = false;  // of facts: an empty cell is Null. Results may always be empty
};

// The facts of one case: of each column its value, Null for an empty cell.
class RuleFacts {
 public:
  RuleFacts(const std::vector<RuleColumn>& columns, std::vector<Variant> values)
      : columns_(columns), values_(std::move(values)) {}
  // Throws std::logic_error for a column that the rule does not have.
  const Variant& operator[](std::string_view caption) const;
  double number(std::string_view caption) const { return null_to_double((*this)[caption]); }
  std::int32_t whole(std::string_view caption) const { return null_to_int32((*this)[caption]); }

 private:
  const std::vector<RuleColumn>& columns_;
  std::vector<Variant> values_;
};

struct RuleOutcome {
  std::vector<Variant> results;  // of each column of results; Null for none
  std::string explanation;       // from the facts to the last result, in words
  std::string fault = {};        // why the answer is none, or not what restating it leads to; "" without a fault
};

// What does not fit among the facts of one case.
struct RuleFactFault {
  const char* column;
  std::string text;
};

struct Rule {
  const char* caption;
  std::vector<RuleColumn> facts, results;
  // Throws quor::Error when the engine or the calculation refuses the facts.
  std::function<RuleOutcome(RuleBench& bench, const RuleFacts& facts)> answer;
  std::function<std::optional<RuleFactFault>(const RuleFacts& facts)> check = {};
};

// In the order in which people read them.
const std::vector<Rule>& rules();

// Each in the file of its subject.
Rule month_salary_rule();
Rule part_month_rule();
Rule service_rule();
Rule scale_rule();
Rule supplement_rule();
Rule limits_rule();

struct ScaleBand {
  std::int16_t from, to;
  double percentage;
};
// None for a text that is no scale.
std::optional<std::vector<ScaleBand>> parse_scale(std::string_view text);

// The fault of an answer that restating it does not lead to; "" when both are the same, to the bit.
std::string restated_fault(const char* what, double restated, double answered);

}  // namespace quor
