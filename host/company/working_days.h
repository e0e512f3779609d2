// How much work a stretch of the calendar holds.
#pragma once

#include "platform/data/date.h"

namespace quor {

// Mondays to Fridays from `from` to `to`, both included; 0 when `to` is before `from`. Holidays are not known here: a
// month with holidays has its norm in the table month_norms.
int working_days(Date from, Date to);

inline constexpr double kHoursOfWorkingDay = 8.0;

}  // namespace quor
