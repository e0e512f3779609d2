// The rules of pay step by step, so that an amount can be told in words: each step by the program's own named rounding.
//
// A restatement is never the amount itself. Whoever shows one has compared its last number with what the calculation
// answered, to the bit, and shows nothing where they differ.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/data/date.h"

namespace quor {

// "GetMonthSalaryValue": tariff by factor in whole money, to a multiple of five, by the multiplier in cents.
struct MonthSalarySteps {
  double product;    // tariff by factor, as the multiplication leaves it
  double whole;      // of it in whole money, a half going up
  int last_digit;    // of the whole amount
  double five_fold;  // the multiple of five that the last digit leads to
  double sum;        // by the multiplier, in cents, a half going up
};
MonthSalarySteps restate_month_salary(double tariff, double factor, double multiplier);

// "GetYearsOfService": what is recorded, and the month boundaries since the day that it was reached on.
struct ServiceSteps {
  std::int32_t months_since;  // the days of both dates play no part; negative for an earlier month
  std::int32_t months;        // with the recorded months
  std::int32_t years;         // with the recorded years, whole, downwards
  std::int32_t rest;          // months beyond the whole years, 0 to 11
};
ServiceSteps restate_service(std::int32_t years, std::int32_t months, Date reached_on, Date at);

// A percentage of a base in cents, a half going up.
struct PercentageSteps {
  double product;  // base by percentage, a hundredth of it
  double sum;
};
PercentageSteps restate_percentage(double base, double percentage);

// Hours by the hour tariff and the factor in cents, a half going up.
struct SurchargeSteps {
  double rate;  // of an hour: tariff by factor
  double sum;
};
SurchargeSteps restate_surcharge(double tariff, double factor, double hours);

// The worked part of a position's month. Hours of the whole month are spread over its working days.
struct HoursOfTime {
  double hours;
  bool of_month;  // else of a day
};
struct WorkedPartSteps {
  std::int32_t days;      // working days of the position within the month
  std::int32_t all_days;  // working days of the month
  double hours;           // of the position: its part of the month's, and those of its days
  double part;            // of the norm
  double multiplier;      // of the month's salary: the share, or the share by the part
};
// `from` and `to` are the position's days, cut to one month. `worked` is the basic time of the month and of days of the
// position, in the order in which it is stored; nothing is the norm.
WorkedPartSteps restate_worked_part(Date from, Date to, double norm, const std::vector<HoursOfTime>& worked,
                                    double share);

}  // namespace quor
