// The calculation of a month: everybody in force, a thousand people a transaction, one person's fault apart from the
// others.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "host/business/application.h"
#include "host/payroll/document_store.h"

namespace quor {

struct MonthRunOptions {
  std::optional<std::int32_t> department = {};  // with its sub-departments; none: everybody
  std::function<void(std::int32_t done, std::int32_t all)> progress = {};
  std::function<bool()> cancelled = {};  // asked before each person
};

struct MonthRun {
  std::int32_t all = 0;      // people in force
  std::int32_t done = 0;     // calculated or found at fault, and stored
  std::int32_t changed = 0;  // documents written or removed
  bool cancelled = false;    // what is done is stored; the others are as they were
  std::vector<PersonFault> faults;
  // Person, Category, Factor, BaseTariff, Share, MonthSalary (of the whole month), BasePay (of the worked part),
  // ServiceYears, SupplementPercentage, ServiceSupplement, Supplements, Surcharges, Total, Check: a row a position in
  // alphabetical order; what is the person's stands on the first row.
  std::shared_ptr<Recordset> rows;
};

// Throws StoreError, PluginError, and quor::Error when the month is closed or the department is unknown. Whatever stops
// it, each person's document is either whole or as it was.
MonthRun calculate_month(Application& application, const Month& month, const MonthRunOptions& options);

}  // namespace quor
