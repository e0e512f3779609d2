// Who passes into another percentage of the length-of-service scale in the months ahead. The engine is asked at each
// month's end; only those who pass are then calculated, without storing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/payroll/month_calculation.h"

namespace quor {

inline constexpr int kMostStepMonths = 120;

struct ServiceStep {
  std::int32_t employee = 0;
  std::string name;
  Date day;                  // service is counted from month to month: the first of one; or that of other settings
  std::int16_t years = 0;    // whole, reached by then
  double before = 0;         // per cent
  double after = 0;          // per cent
  double difference = 0;     // money in that month; 0 where nothing is paid for service
  bool paid = true;          // a charge for length of service is in force
  bool over_limit = false;   // the month's sums go over a limit
  bool by_settings = false;  // the service is the same, other settings came into force
};

struct StepsAhead {
  std::vector<ServiceStep> steps;   // by day, then in alphabetical order
  std::vector<PersonFault> faults;  // whose service cannot be counted, or whose month cannot be calculated
  bool cancelled = false;           // nothing is told then
};

// In `months` (1 to kMostStepMonths) months from `first` on, of whom the options say. The work grows with people by
// months, the statements with months alone. Throws quor::Error when the user may not view the salary extension or the
// number of months is none, StoreError, PluginError.
StepsAhead steps_ahead(Application& application, const Month& first, int months, const MonthOptions& options = {});

// What is to be said of a step beside its numbers: "viršys ribą", "priedo už stažą nėra"; "" for nothing.
std::string step_remark(const ServiceStep& step);

}  // namespace quor
