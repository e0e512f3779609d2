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

// People, calculated: their documents and faults, both by employee ID.
struct CalculatedPeople {
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
// equal ones are left alone, a person's fault is kept beside the document of an earlier calculated. Nothing is written
// and nothing answered when what pay follows from is no longer at the count `inputs` that they were calculated from
// (see Database::pay_inputs_count). A fixed number of statements, whatever the number of documents. Throws quor::Error
// when the month is closed, StoreError; nothing is written then.
std::optional<ChangedDocuments> store_people(Database& database, const Month& month, const CalculatedPeople& calculated,
                                             std::int64_t inputs);

// Removes the documents and faults of people who are in force no more, of the department with those below it or of all.
// Refuses and throws as store_people does.
std::optional<ChangedDocuments> remove_ended(Database& database, const Month& month,
                                             std::optional<std::int32_t> department, std::int64_t inputs);

// What store_people would write, by employee; nothing is written.
struct DocumentDifference {
  std::vector<std::int32_t> missing;  // of the calculated, at fault or not, without a stored document
  std::vector<std::int32_t> changed;  // whose stored document is another
};
DocumentDifference compare_with_stored(Database& database, const Month& month, const CalculatedPeople& calculated);

// Whose documents remove_ended would remove, by employee.
std::vector<NamedPerson> people_who_ended(Database& database, const Month& month,
                                          std::optional<std::int32_t> department);

}  // namespace quor
