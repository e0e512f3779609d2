#include "host/insight/rules/rule.h"

#include <algorithm>
#include <stdexcept>

#include "platform/data/number_text.h"

namespace quor {

const std::vector<Rule>& rules() {
  static const std::vector<Rule> all = {month_salary_rule(), part_month_rule(), service_rule(),
                                        scale_rule(),        supplement_rule(), limits_rule()};
  return all;
}

const Variant& RuleFacts::operator[](std::string_view caption) const {
  const auto found =
      std::find_if(columns_.begin(), columns_.end(), [&](const RuleColumn& each) { return each.caption == caption; });
  if (found == columns_.end()) throw std::logic_error("no such fact: " + std::string(caption));
  return values_[static_cast<std::size_t>(found - columns_.begin())];
}

std::string restated_fault(const char* what, double restated, double answered) {
  if (restated == answered) return "";
  return std::string(what) + ": atkartojus skaičiavimą išeina " + general_text(restated) + ", o programa atsakė " +
         general_text(answered) + ".";
}

}  // namespace quor
