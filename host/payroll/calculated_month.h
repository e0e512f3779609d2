// The calculation of a month, stored: everybody in force, a thousand people a transaction, one person's fault apart
// from the others.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/payroll/month_calculation.h"

namespace quor {

struct CalculatedMonth {
  std::int32_t all = 0;      // people in force
  std::int32_t done = 0;     // calculated or found at fault, and stored
  std::int32_t changed = 0;  // people whose documents were written or removed: how many of
  ChangedDocuments changed_people = {};
  std::int64_t inputs = 0;      // the state that it was calculated from, see Database::pay_inputs_count
  std::int32_t over_limit = 0;  // people whose sums are over a limit of the settings
  bool cancelled = false;       // what is done is stored; the others are as they were
  std::vector<PersonFault> faults;
  // Person, Category, Factor, BaseTariff, Share, MonthSalary (of the whole month), BasePay (of the worked part),
  // ServiceYears, SupplementPercentage, ServiceSupplement, Supplements, Surcharges, Total, Check: a row a position in
  // alphabetical order; what is the person's stands on the first row.
  std::shared_ptr<Recordset> rows;
};

// Needs the right to write the salary extension, no other: what the month is made of is read for the program. Who may
// not view it, too, gets no rows. Throws StoreError, also when what pay follows from is changed again and again
// meanwhile; PluginError; and quor::Error when the right is missing, the month is closed or the department is unknown.
// Whatever stops it, each person's document is either whole, of one state of the inputs, or as it was.
CalculatedMonth calculate_month(Application& application, const Month& month, const MonthOptions& options);

}  // namespace quor
