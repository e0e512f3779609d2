// A month of the calendar, and how much work it holds.
#pragma once

#include <string_view>

#include "platform/data/date.h"

namespace quor {

class Month {
 public:
  // "2008-01", "2008.01" or "2008-1"; throws quor::Error (TypeMismatch) naming the text.
  static Month parse(std::string_view text);
  static Month of(Date date) { return Month(first_of_month(date)); }

  Date first_day() const { return first_day_; }
  Date last_day() const { return last_of_month(first_day_); }
  std::string text() const { return date_text(first_day_).substr(0, 7); }  // "2008.01"

 private:
  explicit Month(Date first_day) : first_day_(first_day) {}
  Date first_day_;
};

// Mondays to Fridays from `from` to `to`, both included; 0 when `to` is before `from`. Holidays are not known here: a
// month with holidays has its norm in the table month_norms.
int working_days(Date from, Date to);

inline constexpr double kHoursOfWorkingDay = 8.0;

}  // namespace quor
