// A month of the calendar: its days, and how people write it.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

#include "platform/data/date.h"

namespace quor {

class Month {
 public:
  static Month of(Date date);  // any day of it, at any time
  // "2008-01", "2008.01", "2008/1": a date without its day. Throws TypeMismatch naming the text.
  static Month parse(std::string_view text);
  static std::optional<Month> try_parse(std::string_view text);

  // Without time of day.
  Date first_day() const { return first_day_; }
  Date last_day() const;
  std::string text() const;  // "2008.01"

  friend auto operator<=>(Month, Month) = default;

 private:
  explicit Month(Date first_day) : first_day_(first_day) {}
  Date first_day_;
};

}  // namespace quor
