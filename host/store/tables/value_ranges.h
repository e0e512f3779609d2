// Which numbers, dates and texts a company may hold: the ranges of payroll, each once.
//
// Whoever takes a value in (import, data objects, editors) refuses what is outside and says the range; whoever meets
// an old value outside names the person or the setting that holds it. Limits are the clerk's common sense, not law:
// nobody works 745 hours in a month, no share of a post is above two.
#pragma once

#include <string>

#include "platform/data/date.h"

namespace quor {

struct NumberRange {
  double low;
  double high;
  bool low_included = true;

  bool holds(double value) const { return (low_included ? value >= low : value > low) && value <= high; }
  std::string text() const;  // "nuo 0 iki 24", "daugiau kaip 0 iki 2"
};

inline constexpr NumberRange kHoursOfDay{0, 24};
inline constexpr NumberRange kHoursOfMonth{0, 744};  // 31 days
inline constexpr NumberRange kMonthNorm{0, 744, false};
inline constexpr NumberRange kTariff{0, 1'000'000, false};  // money: a month's or an hour's base tariff
inline constexpr NumberRange kFactor{0, 1'000, false};
inline constexpr NumberRange kPercentage{0, 1'000};  // of charges, of the scale; a limit of 0 is none
inline constexpr NumberRange kScaleYear{0, 100};     // and YearFrom <= YearTo
inline constexpr NumberRange kServiceYears{0, 80};
inline constexpr NumberRange kServiceMonths{0, 11};
inline constexpr NumberRange kShare{0, 2, false};       // of a full post
inline constexpr NumberRange kChargeSum{0, 1'000'000};  // money; 0 is no sum: the charge is given another way
inline constexpr NumberRange kStoredId{1, 2'000'000'000};
inline constexpr NumberRange kStoredIdOrNone{0, 2'000'000'000};  // where 0 says "none"

inline constexpr std::size_t kLongestText = 500;  // characters; control characters are none of a text

// 1900.01.01 to 2999.12.31.
Date first_stored_date();
Date last_stored_date();
bool is_stored_date(Date date);
std::string stored_dates_text();  // "nuo 1900.01.01 iki 2999.12.31"

}  // namespace quor
