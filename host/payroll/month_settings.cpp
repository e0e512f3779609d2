#include "host/payroll/month_settings.h"

#include "host/company/in_force.h"
#include "host/payroll/value_faults.h"
#include "host/requests/parameter_text.h"
#include "platform/data/error.h"
#include "platform/data/quoted_text.h"

namespace quor {

namespace {

const std::vector<FieldInfo> kFields = {{"DateFrom", FieldType::kDouble},   {"Codes", FieldType::kText},
                                        {"ExtraLimit", FieldType::kDouble}, {"SurchargeLimit", FieldType::kDouble},
                                        {"TotalLimit", FieldType::kDouble}, {"YearFrom", FieldType::kDouble},
                                        {"YearTo", FieldType::kDouble},     {"Percentage", FieldType::kDouble}};

struct CheckedNumber {
  std::size_t field;
  const char* what;
  const NumberRange& range;
};
constexpr CheckedNumber kChecked[] = {{2, "priedų riba", kPercentage},
                                      {3, "priemokų riba", kPercentage},
                                      {4, "priedų ir priemokų riba", kPercentage},
                                      {5, "stažo skalės metai nuo", kScaleYear},
                                      {6, "stažo skalės metai iki", kScaleYear},
                                      {7, "stažo skalės procentas", kPercentage}};

// Of the settings' and one scale row's numbers the first that cannot be right.
std::string number_fault(const Recordset& row) {
  for (const auto& [field, what, range] : kChecked) {
    if (row.is_null({field})) continue;
    if (std::string fault = value_fault(what, row.number({field}), range); !fault.empty()) return fault;
  }
  if (!row.is_null({5}) && !row.is_null({6}) && row.number({5}) > row.number({6})) {
    return "stažo skalės eilutė nuo " + row.field(FieldHandle{5}).to_text() + " iki " +
           row.field(FieldHandle{6}).to_text() + " metų (metai nuo turi būti ne didesni)";
  }
  return "";
}

// Takes the codes of the list; answers what is wrong with it.
std::string take_codes(const std::string& list, std::set<std::int32_t>& codes) {
  const std::string text = quoted(list);
  try {
    const auto read = ParameterText(text).whole_list();
    codes.insert(read.begin(), read.end());
    return "";
  } catch (const Error&) {
    return "priemokų kodų sąrašas „" + list + "“ (turi būti numeriai, atskirti kableliais be tarpų)";
  }
}

}  // namespace

MonthSettings read_month_settings(Database& database, const Month& month) {
  const auto rows = database.read(
      "SELECT s.date_from, s.personal_time_code_id_list, s.extra_charge_percentage, s.surcharge_percentage,"
      " s.total_charge_percentage, r.year_from, r.year_to, r.percentage FROM settings s"
      " LEFT JOIN settings_rows r ON r.settings_id = s.id WHERE s.id = " +
          id_in_force("settings", "", ":p0") + " ORDER BY r.id",
      kFields, {month.last_day()});
  MonthSettings settings;
  if (rows->RecordCount() == 0) {
    settings.fault = "nėra valstybės tarnautojų nustatymų datai " + date_text(month.last_day());
    return settings;
  }
  std::string fault = date_fault("data", rows->number({0}));
  const std::string named =
      fault.empty() ? "nustatymai nuo " + date_text(Date::from_serial(rows->number({0}))) + ": " : "nustatymai: ";
  if (fault.empty()) fault = take_codes(null_to_text(rows->field(FieldHandle{1})), settings.surcharge_codes);
  for (; !rows->Eof() && fault.empty(); rows->MoveNext()) fault = number_fault(*rows);
  if (!fault.empty()) settings.fault = named + fault;
  return settings;
}

}  // namespace quor
