// The calculation of everybody in a month against one state of the company: the loop that storing a month and comparing
// it share.
//
// Everything that pay follows from is read in one snapshot. The results come a thousand people at a time; whoever takes
// them looks whether that state still stands, and if it does not, everybody is calculated anew, from the first person.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/document_calculation.h"
#include "host/payroll/document_store.h"
#include "host/payroll/run_watch.h"

namespace quor {

// Whom a run is about, and who looks on.
struct MonthOptions {
  std::optional<std::int32_t> department = {};                             // with its sub-departments; none: everybody
  std::vector<std::int32_t> people = {};                                   // these alone; none: everybody
  std::function<void(std::int32_t done, std::int32_t all)> progress = {};  // begins anew with the calculation
  std::function<bool()> cancelled = {};                                    // asked before each person
  RunWatch* watch = nullptr;                                               // of the engine at work; outlives the run

  Whom whom() const { return {department, people}; }
};

// Takes the results. A call that answers false has found that the inputs are others by now.
class MonthTaker {
 public:
  virtual ~MonthTaker() = default;
  // The calculation begins, or begins anew: what was taken is out of date.
  virtual void begin(const MonthInputs& inputs) = 0;
  // One person, calculated without a fault.
  virtual void take(const PersonInput& /*person*/, const PersonMonth& /*month*/) {}
  // The people since the last part.
  [[nodiscard]] virtual bool take_part(const CalculatedPeople& part) = 0;
  // Everybody is taken; not called after a cancellation.
  [[nodiscard]] virtual bool take_end() = 0;
};

// Answers false when it was cancelled: the people until then are taken. Throws StoreError, also when the inputs were
// changed during each of three attempts (kChangedElsewhere); PluginError; quor::Error for an unknown department; and
// whatever the taker throws. Asks for no right: what the month is made of is read for the program.
bool calculate_people(Application& application, const Month& month, const MonthOptions& options, MonthTaker& taker);

}  // namespace quor
