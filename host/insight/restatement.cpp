#include "host/insight/restatement.h"

#include "host/company/working_days.h"
#include "platform/data/month.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

double five_fold(double whole, int digit) {
  if (digit == 0 || digit == 5) return whole;
  if (digit <= 2) return whole - digit;
  if (digit <= 7) return whole - digit + 5;
  return whole + 10 - digit;
}

}  // namespace

MonthSalarySteps restate_month_salary(double tariff, double factor, double multiplier) {
  MonthSalarySteps steps{};
  steps.product = tariff * factor;
  steps.whole = round_half_up(steps.product, 0);
  steps.last_digit = general_text(steps.whole).back() - '0';
  steps.five_fold = five_fold(steps.whole, steps.last_digit);
  steps.sum = round_half_up(steps.five_fold * multiplier, 2);
  return steps;
}

ServiceSteps restate_service(std::int32_t years, std::int32_t months, Date reached_on, Date at) {
  ServiceSteps steps{};
  steps.months_since = months_between(reached_on, at);
  steps.months = months + steps.months_since;
  const auto whole = static_cast<std::int32_t>(int_part(steps.months / 12.0));
  steps.years = years + whole;
  steps.rest = steps.months - 12 * whole;
  return steps;
}

PercentageSteps restate_percentage(double base, double percentage) {
  const double product = base * percentage / 100;
  return {.product = product, .sum = round_half_up(product, 2)};
}

SurchargeSteps restate_surcharge(double tariff, double factor, double hours) {
  return {.rate = tariff * factor, .sum = round_half_up(tariff * factor * hours, 2)};
}

WorkedPartSteps restate_worked_part(Date from, Date to, double norm, const std::vector<HoursOfTime>& worked,
                                    double share) {
  const Month month = Month::of(from);
  WorkedPartSteps steps{};
  steps.days = working_days(from, to);
  steps.all_days = working_days(month.first_day(), month.last_day());
  const double in_force = static_cast<double>(steps.days) / steps.all_days;
  if (worked.empty()) steps.hours = norm * in_force;
  for (const HoursOfTime& each : worked) steps.hours += each.of_month ? each.hours * in_force : each.hours;
  steps.part = steps.hours / norm;
  steps.multiplier = steps.part == 1 ? share : share * steps.part;
  return steps;
}

}  // namespace quor
