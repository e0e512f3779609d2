#include "host/store/stored_columns.h"

#include <algorithm>
#include <vector>

#include "host/store/object_codes.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

struct StoredTable {
  std::string_view name;
  std::string_view caption;
  std::vector<StoredColumn> columns;
};

constexpr StoredColumn kId{"id", "ID", &kStoredId};
constexpr StoredColumn kGuid{"guid", "GUID"};
constexpr StoredColumn kName{"name", "pavadinimas"};
constexpr StoredColumn kCode{"code", "kodas"};
constexpr StoredColumn kEmployee{"employee_id", "darbuotojas", &kStoredId};
constexpr StoredColumn kDocument{"document_id", "dokumentas", &kStoredId};
constexpr StoredColumn kFrom{"date_from", "galioja nuo"};
constexpr StoredColumn kTo{"date_to", "galioja iki"};
constexpr StoredColumn kMonth{"month", "mėnuo"};

// Of the settings and their scale; documents keep the same.
constexpr StoredColumn kMonthTariff{"base_month_tariff_id", "bazinė mėnesinė alga", &kStoredIdOrNone};
constexpr StoredColumn kHourTariff{"base_hour_tariff_id", "bazinė valandinė alga", &kStoredIdOrNone};
constexpr StoredColumn kSurchargeCodes{"personal_time_code_id_list", "priemokų laiko kodai", nullptr,
                                       TextForm::kTimeCodeList};
constexpr StoredColumn kExtraLimit{"extra_charge_percentage", "priedų riba", &kPercentage};
constexpr StoredColumn kSurchargeLimit{"surcharge_percentage", "priemokų riba", &kPercentage};
constexpr StoredColumn kTotalLimit{"total_charge_percentage", "bendra priedų ir priemokų riba", &kPercentage};
constexpr StoredColumn kStepFrom{"year_from", "stažas nuo", &kScaleYear};
constexpr StoredColumn kStepTo{"year_to", "stažas iki", &kScaleYear};
constexpr StoredColumn kStepPercentage{"percentage", "priedo procentas", &kPercentage};

constexpr NumberRange kSumType{0, 2};
constexpr NumberRange kPaidSum{0, 1e12};  // above it cents are lost

std::vector<StoredTable> people_and_tariffs() {
  return {
      {"departments", "Padaliniai", {kId, {"parent_id", "aukštesnis padalinys", &kStoredId}, kName}},
      {"employees",
       "Darbuotojai",
       {kId,
        {"department_id", "padalinys", &kStoredId},
        {"name", "pavardė ir vardas"},
        {"usr_acc_date", "tarnybos pradžia"}}},
      {"constant_types", "Darbo užmokesčio konstantos", {kId, kCode, kName}},
      {"constant_values",
       "Konstantų reikšmės",
       {kId, {"constant_type_id", "konstanta", &kStoredId}, kFrom, {"value", "reikšmė", &kTariff}}},
      {"indications",
       "Žymėjimai",
       {kId,
        {"indication_code", "žymėjimo rūšis"},
        {"code_id", "kodo numeris", &kStoredId},
        kCode,
        {"code_name", "pavadinimas"}}},
      {"salary_codes", "Darbo užmokesčio kodai", {kId, kCode, kName}},
      {"categories", "Pareigybių kategorijos", {kId, kGuid, kName}},
      {"category_rows",
       "Kategorijų koeficientai",
       {kId, kGuid, {"category_id", "kategorija", &kStoredId}, kFrom, {"factor", "koeficientas", &kFactor}}},
      {"settings",
       "Valstybės tarnautojų nustatymai",
       {kId, kGuid, kFrom, kMonthTariff, kHourTariff, kSurchargeCodes, kExtraLimit, kSurchargeLimit, kTotalLimit}},
      {"settings_rows",
       "Tarnybos stažo skalė",
       {kId, kGuid, {"settings_id", "nustatymai", &kStoredId}, kStepFrom, kStepTo, kStepPercentage}},
      {"experience",
       "Tarnybos stažas",
       {kId,
        kEmployee,
        {"date_experience", "stažo data"},
        {"experience_years", "stažo metai", &kServiceYears},
        {"experience_months", "stažo mėnesiai", &kServiceMonths}}},
      {"extra_charges",
       "Darbuotojų priedai",
       {kId,
        kGuid,
        kEmployee,
        kFrom,
        kTo,
        {"sum_a", "suma", &kChargeSum},
        {"percentage", "procentas", &kPercentage},
        {"salary_extra_oid", "sąsaja su tarnybos stažu", nullptr, TextForm::kServiceTie},
        {"salary_code_id", "darbo užmokesčio kodas", &kStoredIdOrNone},
        {"comment", "pastaba"}}},
      {"positions",
       "Darbuotojų pareigybės",
       {kId,
        kEmployee,
        {"contract_guid", "sutarties GUID"},
        {"norm_guid", "normos GUID"},
        {"constant_type_id", "bazinė alga", &kStoredIdOrNone},
        {"category_id", "kategorija", &kStoredIdOrNone},
        {"share", "etato dalis", &kShare},
        kFrom,
        kTo}},
  };
}

// Long as a list is.
std::vector<StoredTable> users_and_months() {
  return {
      {"users", "Vartotojai", {kId, {"name", "vardas"}, {"administrator", "administratorius"}}},
      {"rights",
       "Vartotojų teisės",
       {{"user_id", "vartotojas", &kStoredId},
        {"component", "programos dalis"},
        {"can_view", "gali matyti"},
        {"can_create", "gali kurti"},
        {"can_delete", "gali naikinti"},
        {"can_print", "gali spausdinti"},
        {"can_write", "gali keisti"}}},
      {"month_norms", "Mėnesių normos", {kMonth, {"hours", "valandos", &kMonthNorm}}},
      {"worked_time",
       "Darbo laikas",
       {kEmployee, {"date", "diena arba mėnuo"}, {"time_code", "laiko kodas"}, {"hours", "valandos", &kHoursOfMonth}}},
      {"documents",
       "Mėnesių dokumentai",
       {kId,
        kGuid,
        kEmployee,
        kMonth,
        {"check_code", "patikros kodas"},
        {"check_message", "patikros išvada", nullptr, TextForm::kProgramsOwn},
        {"service_years", "tarnybos metai", &kServiceYears},
        {"supplement_percentage", "stažo priedo procentas", &kPercentage},
        {"settings_guid", "nustatymų GUID"}}},
      {"time_rows",
       "Dokumentų laiko eilutės",
       {kId,
        kGuid,
        kDocument,
        {"salary_extra_oid", "skaičiavimo objektas"},
        {"position_id", "pareigybė", &kStoredId},
        {"time_code_id", "laiko kodo numeris", &kStoredId},
        {"hours", "valandos", &kHoursOfMonth}}},
      {"salary_rows",
       "Dokumentų sumų eilutės",
       {kId,
        kGuid,
        kDocument,
        {"time_row_guid", "laiko eilutės GUID"},
        {"sum_type", "sumos rūšis", &kSumType},
        {"sum_a", "suma", &kPaidSum},
        {"percentage", "procentas", &kPercentage},
        {"personal_extra_charge_id", "priedas", &kStoredIdOrNone},
        {"salary_code_id", "darbo užmokesčio kodas", &kStoredIdOrNone}}},
      {"document_positions",
       "Dokumentų pareigybės",
       {kId,
        kDocument,
        {"category", "kategorija"},
        {"factor", "koeficientas", &kFactor},
        {"tariff", "bazinė alga", &kTariff},
        {"share", "etato dalis", &kShare},
        {"month_salary", "pareiginė alga", &kPaidSum}}},
      {"document_settings",
       "Dokumentų nustatymai",
       {kGuid,
        {"line", "eilutė", &kStoredId},
        {"settings_id", "nustatymai", &kStoredId},
        {"settings_guid", "nustatymų GUID"},
        kFrom,
        kMonthTariff,
        kHourTariff,
        kSurchargeCodes,
        kExtraLimit,
        kSurchargeLimit,
        kTotalLimit,
        {"row_guid", "skalės eilutės GUID"},
        kStepFrom,
        kStepTo,
        kStepPercentage}},
      {"month_faults",
       "Skaičiavimo klaidos",
       {kEmployee, kMonth, {"reason", "priežastis", nullptr, TextForm::kProgramsOwn}}},
      {"month_closings",
       "Mėnesių uždarymai",
       {kId,
        kMonth,
        {"closed", "uždarytas ar atvertas"},
        {"done_by", "kas"},
        {"done_at", "kada"},
        {"reason", "priežastis"}}},
      {"closed_months",
       "Uždaryti mėnesiai",
       {kMonth, {"closed_by", "uždarė"}, {"closed_at", "uždaryta"}, {"settings_guid", "nustatymų GUID"}}},
  };
}

const StoredTable* find_table(std::string_view name) {
  static const std::vector<StoredTable> tables = [] {
    std::vector<StoredTable> all = people_and_tariffs();
    for (StoredTable& table : users_and_months()) all.push_back(std::move(table));
    return all;
  }();
  const auto found = std::find_if(tables.begin(), tables.end(), [&](const auto& each) { return each.name == name; });
  return found == tables.end() ? nullptr : &*found;
}

bool has_control_character(std::string_view text) {
  while (!text.empty()) {
    const char32_t character = take_character(text);
    if (character < 0x20 || (character >= 0x7F && character <= 0x9F)) return true;
  }
  return false;
}

// An ID as it is written back: no blanks, no sign, no leading zeros.
bool is_id(std::string_view text) {
  if (text.empty() || text.size() > 10 || text.front() == '0') return false;
  return text.find_first_not_of("0123456789") == std::string_view::npos &&
         kStoredId.holds(std::stod(std::string(text)));
}

std::string list_fault(std::string_view list) {
  for (std::size_t begin = 0; begin <= list.size() && !list.empty();) {
    const std::size_t end = std::min(list.find(',', begin), list.size());
    const std::string_view piece = list.substr(begin, end - begin);
    if (!is_id(piece)) {
      return "„" + std::string(piece) + "“ nėra laiko kodo numeris: sąrašas rašomas be tarpų, pvz., 12,15,40";
    }
    begin = end + 1;
  }
  return "";
}

std::string tie_fault(std::string_view text) {
  const std::string_view type = kSalaryExtensionType;
  if (text.empty() || (text.starts_with(type) && (text == type || is_id(text.substr(type.size()))))) return "";
  return "„" + std::string(text) + "“ – leidžiama palikti tuščią arba rašyti " + std::string(type);
}

std::string text_fault(TextForm form, std::string_view text) {
  if (form == TextForm::kProgramsOwn) return "";
  if (const std::size_t length = character_count(text); length > kLongestText) {
    return "teksto ilgis " + std::to_string(length) + " – leidžiama iki " + std::to_string(kLongestText) + " ženklų";
  }
  if (has_control_character(text)) return "tekste yra valdymo ženklas (eilutės pabaiga, tabuliacija ar kitas)";
  if (form == TextForm::kTimeCodeList) return list_fault(text);
  return form == TextForm::kServiceTie ? tie_fault(text) : "";
}

}  // namespace

const StoredColumn& stored_column(std::string_view table, std::string_view column) {
  static constexpr StoredColumn kUndeclared{};
  const StoredTable* const declared = find_table(table);
  if (declared == nullptr) return kUndeclared;
  const auto found = std::find_if(declared->columns.begin(), declared->columns.end(),
                                  [&](const StoredColumn& each) { return each.name == column; });
  return found == declared->columns.end() ? kUndeclared : *found;
}

std::string_view table_caption(std::string_view table) {
  const StoredTable* const declared = find_table(table);
  return declared == nullptr ? std::string_view() : declared->caption;
}

std::string value_fault(const StoredColumn& column, const Variant& value, const std::string& written) {
  switch (value.kind()) {
    case Variant::Kind::kInt16:
    case Variant::Kind::kInt32:
    case Variant::Kind::kDouble:
      if (column.range == nullptr || column.range->holds(value.to_double())) return "";
      return written + " – leidžiama " + column.range->text();
    case Variant::Kind::kDate:
      return is_stored_date(value.to_date()) ? "" : written + " – leidžiama " + stored_dates_text();
    case Variant::Kind::kText:
      return text_fault(column.form, value.to_text());
    default:
      return "";
  }
}

bool same_value(const Variant& a, const Variant& b) {
  if (a.kind() != b.kind()) return false;
  if (a.kind() == Variant::Kind::kDouble) return a.to_double() == b.to_double();
  return null_to_text(a) == null_to_text(b);
}

}  // namespace quor
