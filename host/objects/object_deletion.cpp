#include "host/objects/object_deletion.h"

#include <optional>
#include <utility>
#include <vector>

#include "host/company/closed_reach.h"
#include "host/company/in_force.h"
#include "host/objects/record_rules.h"
#include "host/objects/record_types.h"
#include "host/store/object_codes.h"
#include "host/store/record_guard.h"
#include "host/store/tables/statements.h"
#include "platform/data/month.h"

namespace quor {

namespace {

// What keeps a record from being deleted: rows of other tables that name it.
struct Use {
  const char* object_type;
  std::string from_where;  // of the rows that use the record with the ID :p0
  const char* users;       // where it is named, for the user
};

const std::vector<Use>& uses() {
  const std::string number = "(SELECT code_id FROM indications WHERE id = :p0)";  // of the time code
  static const std::vector<Use> all = {
      {kCategoryType, "positions WHERE category_id = :p0", "darbuotojų pareigybėse"},
      {kSalaryExtensionType, "time_rows WHERE position_id = :p0", "mėnesių dokumentuose"},
      {kSalaryExtensionType,
       std::string("extra_charges WHERE salary_extra_oid = '") + kSalaryExtensionType + "' || CAST(:p0 AS TEXT)",
       "asmeniniuose prieduose"},
      {kDepartmentType, "employees WHERE department_id = :p0", "darbuotojų kortelėse"},
      {kDepartmentType, "departments WHERE parent_id = :p0", "žemesniuose padaliniuose"},
      {kConstantType, "settings WHERE :p0 IN (base_month_tariff_id, base_hour_tariff_id)",
       "valstybės tarnautojų nustatymuose"},
      {kConstantType, "positions WHERE constant_type_id = :p0", "darbuotojų pareigybėse"},
      {kTimeCodeType, "worked_time WHERE time_code_id = " + number, "darbo laiko įrašuose"},
      {kTimeCodeType,
       "settings WHERE ',' || personal_time_code_id_list || ',' LIKE '%,' || CAST(" + number + " AS TEXT) || ',%'",
       "valstybės tarnautojų nustatymuose"},
      {kTimeCodeType, "time_rows WHERE time_code_id = " + number, "mėnesių dokumentuose"},
      {kSalaryCodeType, "extra_charges WHERE salary_code_id = :p0", "darbuotojų prieduose"},
      {kSalaryCodeType, "salary_rows WHERE salary_code_id = :p0", "mėnesių dokumentuose"},
      // What was paid stays known; an open month is calculated again without the charge.
      {kPersonalChargeType,
       "closed_months c JOIN documents d ON d.month = c.month JOIN extra_charges e ON e.employee_id = d.employee_id"
       " JOIN salary_rows r ON r.document_id = d.id AND r.personal_extra_charge_id = e.id WHERE e.id = :p0",
       "uždarytų mėnesių dokumentuose"},
      {kEmployeeType, "documents WHERE employee_id = :p0", "mėnesių dokumentuose"},
      {kEmployeeType, "worked_time w JOIN closed_months c ON c.month = w.month WHERE w.employee_id = :p0",
       "uždarytų mėnesių darbo laike"},
  };
  return all;
}

[[noreturn]] void refuse(const std::string& text) { throw StoreError(StoreFault::kRefused, text); }

// What the record is called: its name, or its key. Throws when it is gone.
std::string name_of(Database& database, const RecordType& type, std::int32_t id, const std::string& key) {
  const RecordField* shown = &type.fields.front();
  for (const RecordField& field : type.fields) {
    if (type.name_field != nullptr && field.info.name == type.name_field) shown = &field;
  }
  const auto record = database.read(
      std::string("SELECT ") + shown->column() + " FROM " + type.table + " WHERE id = :p0" + type.and_only(),
      {shown->info}, {id});
  if (record->RecordCount() == 0) throw_changed_elsewhere(database, type.table, id);
  const std::string name = type.name_field == nullptr ? "" : null_to_text(record->field(FieldHandle{0}));
  return name.empty() ? key : name;
}

void refuse_used(Database& database, const RecordType& type, std::int32_t id, const std::string& name) {
  for (const Use& use : uses()) {
    if (use.object_type != type.object_type) continue;
    const std::int32_t count =
        database.read("SELECT COUNT(*) FROM " + use.from_where, {{"Count", FieldType::kInt32}}, {id})
            ->int32(FieldHandle{0});
    if (count == 0) continue;
    refuse("Įrašo „" + name + "“ panaikinti negalima: jis nurodytas " + use.users + " (" + std::to_string(count) +
           ").");
  }
}

// Nothing names settings by their ID, but a closed month stands on those in force at its end: previews of it would
// change.
void refuse_settings_of_closed_months(Database& database, std::int32_t id, const std::string& name) {
  const auto months = database.read("SELECT month FROM closed_months ORDER BY month", {{"Month", FieldType::kDate}});
  for (; !months->Eof(); months->MoveNext()) {
    const Month month = Month::of(months->field("Month").to_date());
    const auto in_force = database.read("SELECT id FROM settings WHERE id = " + id_in_force("settings", "", ":p0"),
                                        {{"ID", FieldType::kInt32}}, {month.last_day()});
    if (in_force->RecordCount() > 0 && in_force->int32(FieldHandle{0}) == id) {
      refuse("Įrašo „" + name + "“ panaikinti negalima: pagal jį apskaičiuotas uždarytas mėnuo " + month.text() + ".");
    }
  }
}

// What of the salary extension goes with an employee asks for the right to delete there.
void require_right_to_delete_pay_of(QuorApplication& application, Database& database, std::int32_t employee) {
  if (application.HasRight(UserRight::kDelete, kSalaryExtensionType, 0)) return;
  for (const char* table : {"positions", "worked_time"}) {
    const auto rows = database.read(std::string("SELECT COUNT(*) FROM ") + table + " WHERE employee_id = :p0",
                                    {{"Count", FieldType::kInt32}}, {employee});
    if (rows->int32(FieldHandle{0}) > 0) {
      refuse("Neturite teisės naikinti darbuotojo pareigybių ir darbo laiko.");
    }
  }
}

void delete_what_is_of_employee(Database& database, std::int32_t employee) {
  const std::pair<const char*, const char*> keyed[] = {{kSalaryExtensionType, "positions"},
                                                       {kPersonalChargeType, "extra_charges"}};
  for (const auto& [code, table] : keyed) {
    database.execute(std::string("DELETE FROM desk_top WHERE object IN (SELECT '") + code +
                         "' || CAST(id AS TEXT) FROM " + table + " WHERE employee_id = :p0)",
                     {employee});
  }
  for (const char* table : {"extra_charges", "positions", "experience", "worked_time", "month_faults"}) {
    database.execute(std::string("DELETE FROM ") + table + " WHERE employee_id = :p0", {employee});
  }
}

void delete_record(QuorApplication& application, Database& database, const RecordType& type, const std::string& key,
                   std::int32_t id, const std::vector<Month>& agreed) {
  const bool is_employee = type.object_type == kEmployeeType;
  const bool is_position = type.object_type == kSalaryExtensionType;
  Transaction transaction(database);
  const std::string name = name_of(database, type, id, key);
  refuse_used(database, type, id, name);
  refuse_needed_record(database, type, id, name);
  if (type.object_type == kSettingsType) refuse_settings_of_closed_months(database, id, name);
  // Other types never reach into a closed month from here: what is used there is refused above.
  std::optional<ClosedReach> reach;
  if (is_employee || is_position) reach.emplace(database, "positions", is_position ? id : 0);

  database.execute("DELETE FROM desk_top WHERE object = :p0", {key});
  if (type.rows) {
    database.execute(std::string("DELETE FROM ") + type.rows->table + " WHERE " + type.rows->owner_column + " = :p0",
                     {id});
  }
  if (is_employee) {
    require_right_to_delete_pay_of(application, database, id);
    delete_what_is_of_employee(database, id);
  }
  delete_row(database, type.table, id);
  if (reach) reach->require(agreed);
  transaction.commit();
}

}  // namespace

void delete_object(QuorApplication& application, Company& company, const std::string& identity) {
  const std::string key = key_of_identity(identity);
  const std::string code = type_of_key(key);
  const RecordType* const type = record_type(code);
  if (type == nullptr) {
    refuse("Objekto „" + key + "“ čia panaikinti negalima: tokius tvarko kita programos dalis.");
  }
  if (!application.HasRight(UserRight::kDelete, std::string(type->object_type), 0)) {
    refuse(std::string("Neturite teisės naikinti ") + type->plural + ".");
  }
  const auto id = id_of_key(key);
  if (!id) refuse("Įrašo „" + key + "“ nėra.");

  write_as_agreed(application, [&](const std::vector<Month>& agreed) {
    delete_record(application, company.database(), *type, key, *id, agreed);
  });
  company.forget();
}

}  // namespace quor
