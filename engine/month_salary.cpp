#include "engine/month_salary.h"

#include <string>

#include "platform/data/number_text.h"

namespace velmora {

double to_multiple_of_five(double amount) {
  const double digit = quor::general_text(amount).back() - '0';
  if (digit == 0 || digit == 5) return amount;
  if (digit <= 2) return amount - digit;
  if (digit <= 7) return amount - digit + 5;
  return amount + 10 - digit;
}

double month_salary(double tariff, double factor, double share) {
  const double rounded = quor::round_half_up(tariff * factor, 0);
  return quor::round_half_up(to_multiple_of_five(rounded) * share, 2);
}

}  // namespace velmora
