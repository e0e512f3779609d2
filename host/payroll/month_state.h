// How a month stands, for whoever looks at its pay: calculated or not, of today's data or of earlier ones, closed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/document_store.h"
#include "host/payroll/month_calculation.h"

namespace quor {

struct StateFault {
  PersonFault fault;
  bool earlier_pay;  // a document of an earlier calculation is shown for the person
};

struct MonthState {
  Month month;
  bool calculated = false;  // if only in part
  std::optional<MonthClosing> closed = {};
  std::int32_t uncalculated = 0;        // people without a document while nobody has calculated the month as a whole
  std::int32_t changed = 0;             // people whose documents a calculation would write, add or remove
  std::vector<StateFault> faults = {};  // in alphabetical order
  // Of a closed month: people whose service or charges were recorded anew since the closing's minute. Lists that
  // ask for these without a date show what is recorded now.
  std::int32_t recorded_since = 0;
  std::string unknown = {};  // why it cannot be said whether data have changed; "" when it can
};

// Cheap while a calculation of everybody holds and of a closed month. Otherwise the month is calculated without
// storing, once for each state of the company: the answer is remembered beside it, unless `watching` cancels it, which
// leaves the state unknown. Throws StoreError, PluginError, and Error when the user may not view the salary extension.
MonthState month_state(Application& application, const Month& month, const MonthOptions& watching = {});

// One line for the user, "2008.01: po skaičiavimo pakeista duomenų (3 žmonių)"; "" for an open month of today's data
// without faults.
std::string month_state_line(const MonthState& state);

}  // namespace quor
