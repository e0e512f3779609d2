#include "host/company/working_days.h"

namespace quor {

int working_days(Date from, Date to) {
  int days = 0;
  for (Date day = from; day <= to; day = add_days(day, 1)) {
    const int weekday = static_cast<int>(day.serial()) % 7;  // 1899-12-30 was a Saturday
    if (weekday > 1) ++days;
  }
  return days;
}

}  // namespace quor
