// A month of the calendar.
#pragma once

#include <string_view>

#include "host/company/working_days.h"
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

}  // namespace quor
