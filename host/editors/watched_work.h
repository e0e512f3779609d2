// Runs over people whose progress whoever waits sees, and can end.
#pragma once

#include "host/application/long_work.h"
#include "host/payroll/month_calculation.h"

namespace quor {

// The work outlives the run.
inline MonthOptions watched(LongWork& work, MonthOptions whom = {}) {
  whom.progress = [&work](std::int32_t done, std::int32_t all) { work.progress(done, all); };
  whom.cancelled = [&work] { return work.cancelled(); };
  return whom;
}

}  // namespace quor
