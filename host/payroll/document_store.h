// Monthly documents in the store: compared with what was calculated, written where they differ.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/payroll/document_settings.h"
#include "host/payroll/month_document.h"
#include "host/store/database.h"
#include "platform/data/month.h"

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
  DocumentSettings settings = {};  // that all of them were calculated by
};

struct NamedPerson {
  std::int32_t employee;
  std::string name;
};

// Employees by ID, whose documents a storing writes or removes.
using ChangedDocuments = std::vector<std::int32_t>;

// Brings the store to what was calculated, in one transaction: documents that are new or differ are written whole,
// equal ones are left alone, a person's fault is kept beside the document of an earlier run. Nothing is written and
// nothing answered when what pay follows from is no longer at the count `inputs` that the run was calculated from (see
// Database::pay_inputs_count). A fixed number of statements, whatever the number of documents. Throws quor::Error when
// the month is closed, StoreError; nothing is written then.
std::optional<ChangedDocuments> store_run(Database& database, const Month& month, const CalculatedRun& run,
                                          std::int64_t inputs);

// Removes the documents and faults of people who are in force no more, of the department with those below it or of all.
// Refuses and throws as store_run does.
std::optional<ChangedDocuments> remove_ended(Database& database, const Month& month,
                                             std::optional<std::int32_t> department, std::int64_t inputs);

// What store_run would write, by employee; nothing is written.
struct DocumentDifference {
  std::vector<std::int32_t> missing;  // in the run, at fault or not, without a stored document
  std::vector<std::int32_t> changed;  // whose stored document is another
};
DocumentDifference compare_with_stored(Database& database, const Month& month, const CalculatedRun& run);

// Whose documents remove_ended would remove, by employee.
std::vector<NamedPerson> people_who_ended(Database& database, const Month& month,
                                          std::optional<std::int32_t> department);

}  // namespace quor
