// Monthly documents in the store: read for a run of employees, written where they differ.
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

// The stored documents of the month of the employees first..last, by employee ID.
std::vector<MonthDocument> read_documents(Database& database, const Month& month, std::int32_t first_employee,
                                          std::int32_t last_employee);

// Brings the store to what was calculated, in one transaction: documents that are new or differ are written whole,
// equal ones are left alone, a person's fault is kept beside the document of an earlier run. Answers how many documents
// changed. A fixed number of statements, whatever the number of documents. Throws quor::Error when the month is closed,
// StoreError; nothing is written then.
std::int32_t store_run(Database& database, const Month& month, const CalculatedRun& run);

// Removes the documents and faults of people who are in force no more, of those that `scope` (an SQL condition on the
// employee's department, with `value` bound to :p2; "" for all) covers. Answers how many documents went.
std::int32_t remove_ended(Database& database, const Month& month, const std::string& scope, const Variant& value);

bool is_closed(Database& database, const Month& month);
// Close and open a month again; each throws quor::Error when it is so already.
void close_month(Database& database, const Month& month, const std::string& user);
void reopen_month(Database& database, const Month& month);

}  // namespace quor
