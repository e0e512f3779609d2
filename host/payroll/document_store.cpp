#include "host/payroll/document_store.h"

#include <algorithm>
#include <map>
#include <span>

#include "host/company/departments.h"
#include "host/payroll/closed_month_guard.h"
#include "host/store/bound_list.h"
#include "host/store/tables/table_rows.h"

namespace quor {

namespace {

struct StoredDocument {
  std::int32_t id;
  MonthDocument document;
};

Variant or_null(std::int32_t id) { return id == 0 ? Variant(kNull) : Variant(id); }
Variant or_null(const std::string& text) { return text.empty() ? Variant(kNull) : Variant(text); }

std::vector<StoredDocument> read_heads(Database& database, const Month& month, std::int32_t first, std::int32_t last) {
  const auto rows = database.read(
      "SELECT id, guid, employee_id, check_code, check_message, service_years, supplement_percentage, settings_guid"
      " FROM documents"
      " WHERE month = :p0 AND employee_id BETWEEN :p1 AND :p2 ORDER BY employee_id",
      {{"ID", FieldType::kInt32},
       {"GUID", FieldType::kText},
       {"UserID", FieldType::kInt32},
       {"Code", FieldType::kInt32},
       {"Message", FieldType::kText},
       {"Years", FieldType::kInt32},
       {"Percentage", FieldType::kDouble},
       {"Settings", FieldType::kText}},
      {month.first_day(), first, last});
  const FieldHandle id{0}, guid{1}, user{2}, code{3}, message{4}, years{5}, percentage{6}, settings{7};
  std::vector<StoredDocument> documents;
  for (; !rows->Eof(); rows->MoveNext()) {
    documents.push_back({rows->int32(id),
                         {.guid = std::string(rows->text(guid)),
                          .employee = rows->int32(user),
                          .time_rows = {},
                          .salary_rows = {},
                          .check_code = rows->int32(code),
                          .check_message = std::string(rows->text(message)),
                          .positions = {},
                          .service_years = rows->int32(years),
                          .supplement_percentage = rows->number(percentage),
                          .settings_guid = std::string(rows->text(settings))}});
  }
  return documents;
}

// Rows come by employee and then in the order in which they were written: each goes to the next document.
template <typename Add>
void give_to_documents(std::vector<StoredDocument>& documents, Recordset& rows, const Add& add) {
  const FieldHandle user{0};
  auto document = documents.begin();
  for (; !rows.Eof(); rows.MoveNext()) {
    while (document->document.employee < rows.int32(user)) ++document;
    add(document->document);
  }
}

std::string rows_of(const char* columns, const char* table) {
  return std::string("SELECT d.employee_id, ") + columns + " FROM documents d JOIN " + table +
         " r ON r.document_id = d.id WHERE d.month = :p0 AND d.employee_id BETWEEN :p1 AND :p2"
         " ORDER BY d.employee_id, r.id";
}

std::vector<StoredDocument> read_stored(Database& database, const Month& month, std::int32_t first, std::int32_t last) {
  auto documents = read_heads(database, month, first, last);
  if (documents.empty()) return documents;
  const std::vector<Variant> values = {month.first_day(), first, last};

  const auto times =
      database.read(rows_of("r.guid, r.salary_extra_oid, r.position_id, r.time_code_id, r.hours", "time_rows"),
                    {{"UserID", FieldType::kInt32},
                     {"GUID", FieldType::kText},
                     {"OID", FieldType::kText},
                     {"Position", FieldType::kInt32},
                     {"Code", FieldType::kInt32},
                     {"Hours", FieldType::kDouble}},
                    values);
  give_to_documents(documents, *times, [&](MonthDocument& document) {
    document.time_rows.push_back({std::string(times->text({1})), std::string(times->text({2})), times->int32({3}),
                                  times->int32({4}), times->number({5})});
  });

  const auto sums =
      database.read(rows_of("r.guid, r.time_row_guid, r.sum_type, r.sum_a, r.percentage, r.personal_extra_charge_id,"
                            " r.salary_code_id",
                            "salary_rows"),
                    {{"UserID", FieldType::kInt32},
                     {"GUID", FieldType::kText},
                     {"TimeRow", FieldType::kText},
                     {"Type", FieldType::kInt16},
                     {"SumA", FieldType::kDouble},
                     {"Percentage", FieldType::kDouble},
                     {"Charge", FieldType::kInt32},
                     {"Code", FieldType::kInt32}},
                    values);
  give_to_documents(documents, *sums, [&](MonthDocument& document) {
    document.salary_rows.push_back({std::string(sums->text({1})), std::string(sums->text({2})),
                                    static_cast<SumType>(sums->int32({3})), sums->number({4}), sums->number({5}),
                                    sums->int32({6}), sums->int32({7})});
  });

  const auto positions =
      database.read(rows_of("r.category, r.factor, r.tariff, r.share, r.month_salary", "document_positions"),
                    {{"UserID", FieldType::kInt32},
                     {"Category", FieldType::kText},
                     {"Factor", FieldType::kDouble},
                     {"Tariff", FieldType::kDouble},
                     {"Share", FieldType::kDouble},
                     {"Salary", FieldType::kDouble}},
                    values);
  give_to_documents(documents, *positions, [&](MonthDocument& document) {
    document.positions.push_back({std::string(positions->text({1})), positions->number({2}), positions->number({3}),
                                  positions->number({4}), positions->number({5})});
  });
  return documents;
}

struct Write {
  const MonthDocument* document;
  const StoredDocument* replaced;  // null: there is none yet
};

// Both are by employee.
std::vector<Write> difference(const std::vector<StoredDocument>& stored, const std::vector<MonthDocument>& calculated) {
  std::vector<Write> writes;
  auto old = stored.begin();
  for (const MonthDocument& document : calculated) {
    while (old != stored.end() && old->document.employee < document.employee) ++old;
    const bool found = old != stored.end() && old->document.employee == document.employee;
    if (found && old->document == document) continue;
    writes.push_back({&document, found ? &*old : nullptr});
  }
  return writes;
}

// In batches that a statement can take.
void remove_documents(Database& database, const std::vector<std::int32_t>& ids) {
  constexpr std::size_t kBatch = 1000;
  for (std::size_t first = 0; first < ids.size(); first += kBatch) {
    const std::span<const std::int32_t> part = std::span(ids).subspan(first, std::min(kBatch, ids.size() - first));
    std::vector<Variant> batch;
    const std::string binds = bound_list(part, batch);
    for (const char* rows : {"salary_rows WHERE document_id", "time_rows WHERE document_id",
                             "document_positions WHERE document_id", "documents WHERE id"}) {
      database.execute(std::string("DELETE FROM ") + rows + " IN (" + binds + ")", batch);
    }
  }
}

// The rows of four tables, gathered from documents and inserted at once.
class DocumentRows {
 public:
  // Reserves the IDs of all rows of the documents.
  DocumentRows(Database& database, const std::vector<Write>& writes) {
    std::int32_t times = 0, sums = 0, positions = 0;
    for (const Write& write : writes) {
      times += static_cast<std::int32_t>(write.document->time_rows.size());
      sums += static_cast<std::int32_t>(write.document->salary_rows.size());
      positions += static_cast<std::int32_t>(write.document->positions.size());
    }
    document_id_ = database.reserve_ids("documents", static_cast<std::int32_t>(writes.size()));
    if (times > 0) time_id_ = database.reserve_ids("time_rows", times);
    if (sums > 0) sum_id_ = database.reserve_ids("salary_rows", sums);
    if (positions > 0) position_id_ = database.reserve_ids("document_positions", positions);
  }

  void add(const Month& month, const MonthDocument& document) {
    heads_.append_row(document_id_, document.guid, document.employee, month.first_day(), document.check_code,
                      document.check_message, document.service_years, document.supplement_percentage,
                      or_null(document.settings_guid));
    for (const TimeRow& row : document.time_rows) {
      times_.append_row(time_id_++, row.guid, document_id_, row.salary_extra_oid, or_null(row.position), row.time_code,
                        row.hours);
    }
    for (const SalaryRow& row : document.salary_rows) {
      sums_.append_row(sum_id_++, row.guid, document_id_, or_null(row.time_row_guid),
                       static_cast<std::int32_t>(row.type), row.sum, row.percentage, or_null(row.extra_charge),
                       or_null(row.salary_code));
    }
    for (const DocumentPosition& row : document.positions) {
      positions_.append_row(position_id_++, document_id_, row.category, row.factor, row.tariff, row.share,
                            row.month_salary);
    }
    ++document_id_;
  }

  void insert_into(Database& database) {
    for (TableRows* const rows : {&heads_, &times_, &sums_, &positions_}) rows->insert_into(database);
  }

 private:
  TableRows heads_{"documents"}, times_{"time_rows"}, sums_{"salary_rows"}, positions_{"document_positions"};
  std::int32_t document_id_ = 0, time_id_ = 0, sum_id_ = 0, position_id_ = 0;
};

void write_documents(Database& database, const Month& month, const std::vector<Write>& writes) {
  std::vector<std::int32_t> replaced;
  for (const Write& write : writes) {
    if (write.replaced != nullptr) replaced.push_back(write.replaced->id);
  }
  remove_documents(database, replaced);
  if (writes.empty()) return;
  DocumentRows rows(database, writes);
  for (const Write& write : writes) rows.add(month, *write.document);
  rows.insert_into(database);
}

// Others may stand between the calculated.
struct EmployeeRange {
  std::int32_t first = INT32_MAX, last = 0;

  explicit EmployeeRange(const CalculatedPeople& calculated) {
    const auto cover = [this](std::int32_t id) { first = std::min(first, id), last = std::max(last, id); };
    for (const MonthDocument& document : calculated.documents) cover(document.employee);
    for (const PersonFault& fault : calculated.faults) cover(fault.employee);
  }
};

// Answers whether a fault of one of these people was written or removed; the faults of others stay.
bool store_faults(Database& database, const Month& month, const CalculatedPeople& calculated,
                  const EmployeeRange& people) {
  const auto stored = database.read(
      "SELECT employee_id, reason FROM month_faults WHERE month = :p0 AND employee_id BETWEEN :p1 AND :p2",
      {{"UserID", FieldType::kInt32}, {"Reason", FieldType::kText}}, {month.first_day(), people.first, people.last});
  std::map<std::int32_t, std::string> reasons;
  for (; !stored->Eof(); stored->MoveNext()) reasons.emplace(stored->int32({0}), stored->text({1}));
  std::vector<std::int32_t> leaving;
  for (const MonthDocument& document : calculated.documents) {
    if (reasons.contains(document.employee)) leaving.push_back(document.employee);
  }
  TableRows rows("month_faults");
  for (const PersonFault& fault : calculated.faults) {
    const auto found = reasons.find(fault.employee);
    if (found != reasons.end() && found->second == fault.reason) continue;
    if (found != reasons.end()) leaving.push_back(fault.employee);
    rows.append_row(fault.employee, month.first_day(), fault.reason);
  }
  if (leaving.empty() && rows.size() == 0) return false;
  std::vector<Variant> values = {month.first_day()};
  const std::string binds = bound_list(leaving, values);
  if (!leaving.empty()) {
    database.execute("DELETE FROM month_faults WHERE month = :p0 AND employee_id IN (" + binds + ")", values);
  }
  rows.insert_into(database);
  return true;
}

// The condition on rows of a month's people (columns month and employee_id) that the person is in force no more.
struct EndedPeople {
  std::string condition =
      "month = :p1 AND employee_id IN (SELECT e.id FROM employees e WHERE NOT EXISTS (SELECT 1 FROM positions p"
      " WHERE p.employee_id = e.id AND p.date_from <= :p0 AND (p.date_to IS NULL OR p.date_to >= :p1))";
  std::vector<Variant> values;

  EndedPeople(const Month& month, std::optional<std::int32_t> department)
      : values{month.last_day(), month.first_day()} {
    if (department) {
      condition += " AND " + in_department("e.department_id", ":p2");
      values.emplace_back(*department);
    }
    condition += ")";
  }
};

struct EndedDocuments {
  std::vector<std::int32_t> ids;
  std::vector<NamedPerson> people;
};

EndedDocuments read_ended(Database& database, const EndedPeople& ended) {
  const auto rows = database.read(
      "SELECT d.id, d.employee_id, p.name FROM documents d JOIN employees p ON p.id = d.employee_id WHERE " +
          ended.condition + " ORDER BY d.employee_id",
      {{"ID", FieldType::kInt32}, {"UserID", FieldType::kInt32}, {"Name", FieldType::kText}}, ended.values);
  EndedDocuments found;
  for (; !rows->Eof(); rows->MoveNext()) {
    found.ids.push_back(rows->int32({0}));
    found.people.push_back({rows->int32({1}), std::string(rows->text({2}))});
  }
  return found;
}

}  // namespace

std::optional<ChangedDocuments> store_people(Database& database, const Month& month, const CalculatedPeople& calculated,
                                             std::int64_t inputs) {
  const EmployeeRange people(calculated);
  Transaction transaction(database, Writes::kOther);
  require_open(database, month);
  if (database.pay_inputs_count() != inputs) return std::nullopt;
  const auto stored = read_stored(database, month, people.first, people.last);
  const auto writes = difference(stored, calculated.documents);
  if (!writes.empty()) store_settings(database, calculated.settings);
  write_documents(database, month, writes);
  const bool other_faults = store_faults(database, month, calculated, people);
  if (!writes.empty() || other_faults) transaction.commit();
  ChangedDocuments changed;
  for (const Write& write : writes) changed.push_back(write.document->employee);
  return changed;
}

std::optional<ChangedDocuments> remove_ended(Database& database, const Month& month,
                                             std::optional<std::int32_t> department, std::int64_t inputs) {
  const EndedPeople ended(month, department);
  Transaction transaction(database, Writes::kOther);
  require_open(database, month);
  if (database.pay_inputs_count() != inputs) return std::nullopt;
  const EndedDocuments documents = read_ended(database, ended);
  remove_documents(database, documents.ids);
  const auto faults = database.execute("DELETE FROM month_faults WHERE " + ended.condition, ended.values);
  if (!documents.ids.empty() || faults > 0) transaction.commit();
  ChangedDocuments changed;
  for (const NamedPerson& person : documents.people) changed.push_back(person.employee);
  return changed;
}

DocumentDifference compare_with_stored(Database& database, const Month& month, const CalculatedPeople& calculated) {
  const EmployeeRange people(calculated);
  const auto stored = read_stored(database, month, people.first, people.last);
  DocumentDifference result;
  for (const Write& write : difference(stored, calculated.documents)) {
    (write.replaced == nullptr ? result.missing : result.changed).push_back(write.document->employee);
  }
  for (const PersonFault& fault : calculated.faults) {
    const auto has_document = [&](const StoredDocument& each) { return each.document.employee == fault.employee; };
    if (std::none_of(stored.begin(), stored.end(), has_document)) result.missing.push_back(fault.employee);
  }
  return result;
}

std::vector<NamedPerson> people_who_ended(Database& database, const Month& month,
                                          std::optional<std::int32_t> department) {
  return read_ended(database, EndedPeople(month, department)).people;
}

}  // namespace quor
