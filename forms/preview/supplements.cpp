#include "forms/preview/supplements.h"

#include <algorithm>

#include "platform/data/number_text.h"

namespace velmora {

std::optional<double> salary_in_cell(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.empty() ? std::nullopt : std::optional(quor::parse_number(text));
}

double charge_amount(double sum, double percentage, std::optional<double> salary, double previous) {
  if (percentage == 0) return sum;
  return salary ? quor::round_half_up(*salary * percentage / 100, 2) : previous;
}

}  // namespace velmora
