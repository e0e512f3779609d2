// Where each amount of a person's month comes from: recorded from the calculation itself, told in a clerk's words.
//
// Nothing is stored to explain.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/insight/explained_amount.h"
#include "host/insight/recorded_call.h"
#include "platform/data/month.h"

namespace quor {

// How the stored document of the month stands beside the calculation that is explained.
enum class DocumentState { kSame, kMissing, kDifferent };

struct Explanation {
  std::int32_t employee = 0;
  std::string person;
  Month month;
  bool closed = false;
  DocumentState document = DocumentState::kMissing;
  std::vector<ExplainedAmount> amounts = {};  // positions, service, supplements, surcharges, limits, the total
  std::string fault = {};                     // why the person cannot be calculated; there are no amounts then
  std::vector<std::string> refused = {};      // amounts whose restatement is not what was calculated: not shown
  std::vector<RecordedCall> calls = {};       // of the engine, about the person
};

// Calculates the person's month without storing it and explains it. Throws StoreError; PluginError; quor::Error when
// the user may not view the salary extension, or nobody of that ID is employed in the month.
Explanation explain(Application& application, const Month& month, std::int32_t employee);

// What the state of the document says to a clerk; "" when there is nothing to say.
std::string document_text(const Explanation& explanation);

}  // namespace quor
