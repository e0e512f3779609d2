// A calculated person's amounts in a clerk's words, from what the recorder has written down. Each is restated step by
// step; one whose last number is not the calculation's to the bit is refused instead of told.
#pragma once

#include <string>
#include <vector>

#include "host/insight/explained_amount.h"
#include "host/insight/recorded_call.h"
#include "host/insight/stored_sources.h"
#include "host/payroll/document_calculation.h"

namespace quor {

struct ToldPay {
  std::vector<ExplainedAmount> amounts;
  std::vector<std::string> refused;
};

// `month` is what the calculation made of `person` by `inputs`, `calls` what it asked the engine meanwhile. Throws
// StoreError.
ToldPay tell_pay(const MonthInputs& inputs, const PersonInput& person, const PersonMonth& month,
                 const std::vector<RecordedCall>& calls, const StoredSources& sources);

}  // namespace quor
