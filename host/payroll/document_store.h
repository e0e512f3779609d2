// Monthly documents in the store: compared with what was calculated, written where they differ.
#pragma once

#include <cstdint>
#include <vector>

#include "host/payroll/month.h"
#include "host/payroll/month_document.h"
#include "host/store/database.h"

namespace quor {

struct PersonFault {
  std::int32_t employee;
  std::string person;
  std::string reason;
};

// A run of people, calculated: their documents and faults, both by employee ID.
struct CalculatedRun {
  std::vector<MonthDocument> documents;
  std::vector<PersonFault> faults;
};

// Brings the store to what was calculated, in one transaction: documents that are new or differ are written whole,
// equal ones are left alone, a person's fault is kept beside the document of an earlier run. Answers how many documents
// changed. A fixed number of statements, whatever the number of documents. Throws quor::Error when the month is closed,
// StoreError; nothing is written then.
std::int32_t store_run(Database& database, const Month& month, const CalculatedRun& run);

// Removes the documents and faults of people who are in force no more, of those that `scope` (an SQL condition on the
// employee's department, with `value` bound to :p2; "" for all) covers. Answers how many documents went.
std::int32_t remove_ended(Database& database, const Month& month, const std::string& scope, const Variant& value);

}  // namespace quor
