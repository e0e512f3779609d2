#include "host/objects/record_rules.h"

#include <algorithm>

#include "host/company/time_code.h"
#include "host/store/object_codes.h"

namespace quor {

namespace {

[[noreturn]] void refuse(const std::string& text) { throw StoreError(StoreFault::kRefused, text); }

void refuse_department_below_itself(Database& database, std::int32_t id) {
  const auto above = database.read(
      "WITH RECURSIVE above (id) AS (SELECT parent_id FROM departments WHERE id = :p0"
      " UNION SELECT d.parent_id FROM departments d JOIN above ON d.id = above.id)"
      " SELECT d.name FROM departments d JOIN above ON above.id = d.id WHERE d.id = :p1",
      {{"Name", FieldType::kText}}, {id, id});
  if (above->RecordCount() == 0) return;
  refuse("Padalinys „" + null_to_text(above->field("Name")) +
         "“ negali priklausyti pats sau nei savo žemesniam padaliniui.");
}

std::string time_code(Database& database, std::int32_t id) {
  const auto row = database.read("SELECT code FROM indications WHERE id = :p0", {{"Code", FieldType::kText}}, {id});
  return row->RecordCount() == 0 ? "" : null_to_text(row->field("Code"));
}

// Worked time comes in by the code or by its number: neither may mean two.
void refuse_ambiguous_time_code(Database& database, std::int32_t id) {
  const auto other = database.read(
      "SELECT o.code, o.code_id FROM indications o JOIN indications own ON own.id = :p0 WHERE o.id <> own.id"
      " AND o.indication_code = own.indication_code AND (o.code = own.code OR CAST(o.code_id AS TEXT) = own.code)",
      {{"Code", FieldType::kText}, {"Number", FieldType::kInt32}}, {id});
  if (other->RecordCount() == 0) return;
  const std::string code = time_code(database, id);
  if (null_to_text(other->field("Code")) == code) refuse("Laiko kodas „" + code + "“ jau yra.");
  refuse("Laiko kodas „" + code + "“ netinka: tai kodo „" + null_to_text(other->field("Code")) + "“ numeris.");
}

// Never one that hours, documents or settings name already: they would mean the new code.
std::int32_t unused_code_number(Database& database) {
  const auto last = database.read(
      "SELECT MAX(n) FROM (SELECT MAX(code_id) AS n FROM indications WHERE indication_code = :p0"
      " UNION ALL SELECT MAX(time_code_id) FROM worked_time UNION ALL SELECT MAX(time_code_id) FROM time_rows) numbers",
      {{"Number", FieldType::kInt32}}, {kWorkTime});
  std::int32_t number = null_to_int32(last->field("Number")) + 1;
  const auto is_in_settings = [&] {
    return database
               .read("SELECT id FROM settings WHERE ',' || personal_time_code_id_list || ',' LIKE :p0",
                     {{"ID", FieldType::kInt32}}, {"%," + std::to_string(number) + ",%"})
               ->RecordCount() > 0;
  };
  while (is_in_settings()) ++number;
  return number;
}

bool same_gap(const TariffGap& one, const TariffGap& other) {
  return one.settings == other.settings && one.column == other.column && one.tariff == other.tariff;
}

}  // namespace

std::vector<ColumnValue> program_values(Database& database, const RecordType& type) {
  if (type.object_type != kTimeCodeType) return {};
  return {{"indication_code", kWorkTime}, {"code_id", unused_code_number(database)}};
}

RecordRules::RecordRules(Database& database, const RecordType& type) : database_(database), type_(type) {
  if (type_.object_type == kConstantType) gaps_ = tariff_gaps(database_);
  if (type_.object_type == kTimeCodeType) had_basic_code_ = has_basic_code();
}

bool RecordRules::has_basic_code() {
  return database_
             .read("SELECT id FROM indications WHERE indication_code = :p0 AND code = :p1", {{"ID", FieldType::kInt32}},
                   {kWorkTime, kBasicTimeCode})
             ->RecordCount() > 0;
}

void RecordRules::require(std::int32_t id) {
  if (type_.object_type == kDepartmentType) refuse_department_below_itself(database_, id);
  if (type_.object_type == kConstantType) {
    for (const TariffGap& gap : tariff_gaps(database_)) {
      const bool old = std::any_of(gaps_.begin(), gaps_.end(), [&](const auto& each) { return same_gap(each, gap); });
      if (!old) refuse("Nustatymai nuo " + date_text(gap.date) + " liktų be tarifo: " + gap.text + ".");
    }
  }
  if (type_.object_type != kTimeCodeType) return;
  refuse_ambiguous_time_code(database_, id);
  if (had_basic_code_ && !has_basic_code()) {
    refuse(std::string("Laiko kodo „") + kBasicTimeCode +
           "“ pervadinti negalima: pagal jį skaičiuojamas dirbtas laikas.");
  }
}

void refuse_needed_record(Database& database, const RecordType& type, std::int32_t id, const std::string& name) {
  if (type.object_type != kTimeCodeType || time_code(database, id) != kBasicTimeCode) return;
  refuse("Įrašo „" + name + "“ panaikinti negalima: pagal jį skaičiuojamas dirbtas laikas.");
}

}  // namespace quor
