// A month calculated without storing it, beside what is stored: whether its documents are those of today.
#pragma once

#include <cstdint>
#include <vector>

#include "host/payroll/month_calculation.h"

namespace quor {

// Every list is in alphabetical order.
struct MonthComparison {
  std::int32_t all = 0;              // people in force
  std::int64_t inputs = 0;           // the state that it holds for, see Database::pay_inputs_count
  bool cancelled = false;            // the lists end with the people until then
  std::vector<NamedPerson> missing;  // in force without a stored document, at fault or not
  std::vector<NamedPerson> changed;  // whose stored document a calculation would write anew
  std::vector<NamedPerson>
      ended;  // in force no more, whose document a calculation would remove; not asked of chosen people
  std::vector<PersonFault> faults;  // who cannot be calculated, whatever document is stored
};

// Writes nothing, and asks not whether the month is closed. Throws as calculate_people does.
MonthComparison compare_month(Application& application, const Month& month, const MonthOptions& options = {});

}  // namespace quor
