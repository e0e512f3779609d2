// Requests for what is the same for everybody: salary constants, categories, settings, codes.
#include "host/company/closed_month_basis.h"
#include "host/company/in_force.h"
#include "host/company/readable_columns.h"
#include "host/company/row_copy.h"
#include "host/requests/requests.h"
#include "platform/data/error.h"
#include "platform/data/quoted_text.h"

namespace quor::requests {

namespace {

const std::vector<FieldInfo> kConstantFields = {{"ConstantTypeID", FieldType::kInt32},
                                                {"Code", FieldType::kText},
                                                {"Name", FieldType::kText},
                                                {"DateFrom", FieldType::kDate},
                                                {"ConstantValue", FieldType::kDouble}};

const std::vector<FieldInfo> kCategoryFields = {{"ID", FieldType::kInt32},
                                                {"GUID", FieldType::kText},
                                                {"Name", FieldType::kText},
                                                {"DateFrom", FieldType::kDate},
                                                {"Factor", FieldType::kDouble}};

const std::vector<FieldInfo> kSettingsFields = {{"ID", FieldType::kInt32},
                                                {"GUID", FieldType::kText},
                                                {"DateFrom", FieldType::kDate},
                                                {"BaseMonthTariffID", FieldType::kInt32},
                                                {"BaseHourTariffID", FieldType::kInt32},
                                                {"PersonalTimeCodeIDList", FieldType::kText},
                                                {"ExtraChargePercentage", FieldType::kDouble},
                                                {"SurChargePercentage", FieldType::kDouble},
                                                {"TotalChargePercentage", FieldType::kDouble},
                                                {"RowGUID", FieldType::kText},
                                                {"YearFrom", FieldType::kInt16},
                                                {"YearTo", FieldType::kInt16},
                                                {"Percentage", FieldType::kDouble}};

const std::vector<FieldInfo> kIndicationFields = {{"IndicationCode", FieldType::kText},
                                                  {"CodeID", FieldType::kInt32},
                                                  {"Code", FieldType::kText},
                                                  {"CodeName", FieldType::kText}};

const std::vector<FieldInfo> kSalaryCodeFields = {
    {"ID", FieldType::kInt32}, {"Code", FieldType::kText}, {"Name", FieldType::kText}};

// Each of these is asked for once per person of a month: read per date, then cloned.
std::string at(const char* name, Date date) { return std::string(name) + date_text(date); }

bool is_code_list(const std::string& text) {
  const std::string list = quoted(text);
  try {
    ParameterText(list).whole_list();
    return true;
  } catch (const Error&) {
    return false;
  }
}

std::shared_ptr<Recordset> read_settings(Database& database, Date date, const std::string& code_list) {
  return database.read("SELECT s.id, s.guid, s.date_from, s.base_month_tariff_id, s.base_hour_tariff_id, " + code_list +
                           ", " + readable_int16("s.extra_charge_percentage") + ", " +
                           readable_int16("s.surcharge_percentage") + ", " +
                           readable_int16("s.total_charge_percentage") + ", r.guid, " + readable_int16("r.year_from") +
                           ", " + readable_int16("r.year_to") + ", " + readable_int16("r.percentage") +
                           " FROM settings s LEFT JOIN settings_rows r ON r.settings_id = s.id WHERE s.id = " +
                           id_in_force("settings", "", ":p0") + " ORDER BY r.id",
                       kSettingsFields, {date});
}

// A list of time codes that nobody can read is no list: whoever is paid by the settings names it.
Answer settings_in_force(Company& company, Date date) {
  auto settings = read_settings(company.database(), date, "s.personal_time_code_id_list");
  const bool readable =
      settings->RecordCount() == 0 || is_code_list(null_to_text(settings->field("PersonalTimeCodeIDList")));
  return readable ? settings : read_settings(company.database(), date, "CAST(NULL AS TEXT)");
}

Answer settings_of_documents(Company& company, const std::string& guid) {
  return company.database().read(
      "SELECT settings_id, settings_guid, date_from, base_month_tariff_id, base_hour_tariff_id,"
      " personal_time_code_id_list, extra_charge_percentage, surcharge_percentage, total_charge_percentage, row_guid,"
      " year_from, year_to, percentage FROM document_settings WHERE guid = :p0 ORDER BY line",
      kSettingsFields, {guid});
}

}  // namespace

Answer salary_constants(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  parameter.end();
  return company
      .kept(at("SalaryConstants", date),
            [&] {
              return company.database().read(
                  "SELECT t.id, t.code, t.name, v.date_from, v.value FROM constant_types t"
                  " JOIN constant_values v ON v.id = " +
                      id_in_force("constant_values", "dated.constant_type_id = t.id", ":p0") + " ORDER BY t.id",
                  kConstantFields, {date});
            })
      ->Clone();
}

Answer office_employee_category(Company& company, ParameterText& parameter) {
  const std::int32_t id = parameter.whole();
  const Date date = parameter.date();
  parameter.end();
  const auto all = company.kept(at("OfficeEmployeeCategory", date), [&] {
    return company.database().read(
        "SELECT c.id, c.guid, c.name, r.date_from, r.factor FROM categories c JOIN category_rows r ON r.id = " +
            id_in_force("category_rows", "dated.category_id = c.id", ":p0") + " ORDER BY c.id",
        kCategoryFields, {date});
  });
  return rows_that_pass(*all, "ID = " + std::to_string(id));
}

Answer office_employee_settings(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  parameter.end();
  return company
      .kept(at("OfficeEmployeeSettings", date),
            [&] {
              const std::string kept = settings_of_closed_month(company, date);
              return kept.empty() ? settings_in_force(company, date) : settings_of_documents(company, kept);
            })
      ->Clone();
}

Answer indications(Company& company, ParameterText& parameter) {
  parameter.none();
  return company
      .kept("Indications",
            [&] {
              return company.database().read(
                  "SELECT indication_code, code_id, code, code_name FROM indications ORDER BY indication_code, code_id",
                  kIndicationFields);
            })
      ->Clone();
}

Answer salary_codes(Company& company, ParameterText& parameter) {
  parameter.none();
  return company
      .kept("SalaryCodes",
            [&] {
              return company.database().read("SELECT id, code, name FROM salary_codes ORDER BY id", kSalaryCodeFields);
            })
      ->Clone();
}

}  // namespace quor::requests
