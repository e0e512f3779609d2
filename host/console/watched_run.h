// Runs over many people from the terminal: how far they are, Ctrl-C, and who was left out.
#pragma once

#include <iostream>
#include <vector>

#include "host/console/call.h"
#include "host/console/progress_bar.h"
#include "host/payroll/month_calculation.h"

namespace quor {

// What `work` makes of the options, under a bar on the terminal; Ctrl-C ends it between two people.
template <typename Work>
auto watched_run(std::optional<std::int32_t> department, const Work& work) {
  const InterruptScope interrupt;
  ProgressBar bar;
  return work(MonthOptions{.department = department,
                           .progress = [&](std::int32_t done, std::int32_t all) { bar.show(done, all); },
                           .cancelled = InterruptScope::interrupted});
}

// Names those who were left out, and why, on standard error.
inline void tell_faults(const std::vector<PersonFault>& faults) {
  for (const PersonFault& fault : faults) std::cerr << "quor: " << fault.person << ": " << fault.reason << '\n';
}

}  // namespace quor
