#include "host/requests/position_salary.h"

#include <cmath>

#include "platform/data/number_text.h"

namespace quor {

double position_salary(double tariff, double factor, double share) {
  // Whole, so that the nearest multiple of five is what its last digit says: 2 down, 3 up.
  const double whole = round_half_up(tariff * factor, 0);
  return round_half_up(std::floor((whole + 2) / 5) * 5 * share, 2);
}

}  // namespace quor
