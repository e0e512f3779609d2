#include "host/objects/experience_store.h"

#include <algorithm>

#include "host/company/closed_reach.h"
#include "host/company/readable_columns.h"
#include "host/objects/record_checks.h"
#include "host/store/record_guard.h"
#include "host/store/tables/column_values.h"
#include "host/store/tables/statements.h"

namespace quor {

namespace {

constexpr char kTable[] = "experience";

const std::vector<RecordField>& fields_of_experience() {
  static const std::vector<RecordField> fields = record_fields(kTable, {{"UserID", "employee_id"},
                                                                        {"DateExperience", "date_experience"},
                                                                        {"ExperienceYears", "experience_years"},
                                                                        {"ExperienceMonthes", "experience_months"}});
  return fields;
}
constexpr FieldHandle kEmployee{0};  // of these, which a stored row is read with

std::shared_ptr<Recordset> read_stored(Database& database, const Variant& employee) {
  std::vector<FieldInfo> fields;
  for (const RecordField& field : fields_of_experience()) fields.push_back(field.info);
  // As the record set shows them, so that a row with a number that nobody can read can be mended.
  const std::string columns = "employee_id, " + readable_date("date_experience") + ", " +
                              readable_service("experience_years") + ", " + readable_service("experience_months") +
                              ", ";
  for (const char* name : {"id", "row_version"}) fields.push_back({name, FieldType::kInt32});
  for (const char* name : {"changed_by", "changed_at"}) fields.push_back({name, FieldType::kText});
  return database.read(
      "SELECT " + columns + "id, row_version, changed_by, changed_at FROM " + kTable + " WHERE employee_id = :p0",
      fields, {employee});
}

class ExperienceStore {
 public:
  ExperienceStore(Company& company, const std::string& user, const Recordset& rows)
      : database_(company.database()), user_(user) {
    for (const RecordField& field : fields_of_experience()) handles_.push_back(rows.handle(field.info.name));
  }

  void store(const RowChange& row) {
    if (row.state() != RowState::kDeleted) refuse_unfit_values(kTable, fields_of_experience(), handles_, row);
    switch (row.state()) {
      case RowState::kAdded:
        return insert(row);
      case RowState::kModified:
        return update(row);
      case RowState::kDeleted:
        return delete_row(database_, kTable, id_of_unchanged(row));
      case RowState::kUnchanged:
        return;
    }
  }

 private:
  // The stored row that the changed one was read from.
  std::int32_t id_of_unchanged(const RowChange& row) {
    const auto stored = read_stored(database_, row.base(handles_[kEmployee.index]));
    const bool there = stored->RecordCount() > 0;
    const std::int32_t id = there ? stored->field("id").to_int32() : 0;  // no row has the ID 0
    bool unchanged = there;
    for (std::size_t i = 0; unchanged && i < handles_.size(); ++i) {
      unchanged = same_value(stored->field(FieldHandle{i}), row.base(handles_[i]));
    }
    if (!unchanged) throw_changed_elsewhere(database_, kTable, id);
    return id;
  }

  void refuse_second_record(const Variant& employee) {
    const auto stored = read_stored(database_, employee);
    if (stored->RecordCount() == 0) return;
    throw StoreError(StoreFault::kChangedElsewhere,
                     "Darbuotojo Nr. " + employee.to_text() +
                         " tarnybos stažą jau įrašė kitas vartotojas: " + null_to_text(stored->field("changed_by")) +
                         ", " + null_to_text(stored->field("changed_at")) + ".");
  }

  void insert(const RowChange& row) {
    const Variant employee = row.current(handles_[kEmployee.index]);
    if (!employee.is_null()) refuse_second_record(employee);
    const std::int32_t id = database_.reserve_ids(kTable);
    std::vector<ColumnValue> values = {{"id", id}};
    append_values(row, id, values);
    insert_row(database_, kTable, values, user_);
  }

  void update(const RowChange& row) {
    const std::int32_t id = id_of_unchanged(row);
    std::vector<ColumnValue> values;
    append_values(row, id, values);
    update_row(database_, kTable, id, values, user_);
  }

  void append_values(const RowChange& row, std::int32_t id, std::vector<ColumnValue>& values) {
    for (std::size_t i = 0; i < handles_.size(); ++i) {
      const RecordField& field = fields_of_experience()[i];
      values.push_back({field.column(), stored_value(database_, kTable, field, id, row.current(handles_[i]))});
    }
  }

  Database& database_;
  const std::string& user_;
  std::vector<FieldHandle> handles_;  // of the fields in the record set
};

}  // namespace

void store_experience(Company& company, const std::string& user, const Recordset& rows,
                      const std::vector<Month>& agreed) {
  ExperienceStore store(company, user, rows);
  // Nobody else writes inside the transaction: what is compared here still holds when it is committed.
  Transaction transaction(company.database());
  ClosedReach reach(company.database(), kTable);
  rows.for_each_change([&](const RowChange& row) { store.store(row); });
  reach.require(agreed);
  transaction.commit();
  company.forget();
}

}  // namespace quor
