// Requests about people: departments, employees, their length of service, charges and positions.
#include "frame/contract/open_bounds.h"
#include "host/company/readable_columns.h"
#include "host/company/row_copy.h"
#include "host/requests/requests.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "platform/data/quoted_text.h"

namespace quor::requests {

namespace {

const std::vector<FieldInfo> kDepartmentFields = {
    {"ID", FieldType::kInt32}, {"ParentID", FieldType::kInt32}, {"Name", FieldType::kText}};

const std::vector<FieldInfo> kEmployeeFields = {{"ID", FieldType::kInt32},
                                                {"DepartmentID", FieldType::kInt32},
                                                {"Preview", FieldType::kText},
                                                {"UsrAccDate", FieldType::kDate}};

// Whole numbers of any size: one that no length of service has must be seen to be mended, and is one person's fault.
const std::vector<FieldInfo> kExperienceFields = {{"UserID", FieldType::kInt32},
                                                  {"DateExperience", FieldType::kDate},
                                                  {"ExperienceYears", FieldType::kInt32},
                                                  {"ExperienceMonthes", FieldType::kInt32}};

const std::vector<FieldInfo> kExtraChargeFields = {
    {"ID", FieldType::kInt32},          {"PersonalID", FieldType::kInt32},    {"DateFrom", FieldType::kDate},
    {"DateTo", FieldType::kDate},       {"SalaryExtraOID", FieldType::kText}, {"SumA", FieldType::kDouble},
    {"Percentage", FieldType::kDouble}, {"SalaryCodeID", FieldType::kInt32}};

const std::vector<FieldInfo> kPersonalChargeFields = {
    {"GUID", FieldType::kText},          {"DateFrom", FieldType::kDate},       {"DateTo", FieldType::kDate},
    {"SumA", FieldType::kDouble},        {"SalaryExtraOID", FieldType::kText}, {"Percentage", FieldType::kDouble},
    {"SalaryCodeID", FieldType::kInt32}, {"Comment", FieldType::kText}};

const std::vector<FieldInfo> kPositionFields = {{"ID", FieldType::kInt32},
                                                {"OIDR", FieldType::kText},
                                                {"PersonalContractGUID", FieldType::kText},
                                                {"SalaryPersonalNormGUID", FieldType::kText},
                                                {"SalaryConstantTypeID", FieldType::kInt32},
                                                {"OfficeEmployeeCategoryID", FieldType::kInt32},
                                                {"Share", FieldType::kDouble},
                                                {"Key", FieldType::kText},
                                                {"DateFrom", FieldType::kDate},
                                                {"DateTo", FieldType::kDate}};

// All positions, read once for a month of requests that each ask for one; the rows of one key by date.
Answer positions(Company& company) {
  return company.kept("Positions", [&] {
    return company.database().read(
        "SELECT id, :p0 || CAST(id AS TEXT), contract_guid, norm_guid, constant_type_id, category_id, share,"
        " contract_guid || norm_guid, " +
            readable_date("date_from") + ", " + readable_date("date_to") +
            " FROM positions ORDER BY positions.date_from, id",
        kPositionFields, {kSalaryExtensionType});
  });
}

}  // namespace

Answer departments(Company& company, ParameterText& parameter) {
  parameter.none();
  return company.database().read("SELECT id, parent_id, name FROM departments ORDER BY sort_key, id",
                                 kDepartmentFields);
}

Answer employees(Company& company, ParameterText& parameter) {
  parameter.none();
  return company.database().read("SELECT id, department_id, name, usr_acc_date FROM employees ORDER BY sort_key, id",
                                 kEmployeeFields);
}

Answer office_employee_experience(Company& company, ParameterText& parameter) {
  parameter.none();
  return company
      .kept("OfficeEmployeeExperience",
            [&] {
              return company.database().read("SELECT employee_id, " + readable_date("date_experience") + ", " +
                                                 readable_service("experience_years") + ", " +
                                                 readable_service("experience_months") +
                                                 " FROM experience ORDER BY employee_id",
                                             kExperienceFields);
            })
      ->Clone();
}

Answer office_employee_extra_charges(Company& company, ParameterText& parameter) {
  parameter.none();
  return company
      .kept("OfficeEmployeeExtraCharges",
            [&] {
              return company.database().read("SELECT id, employee_id, " + readable_date("COALESCE(date_from, :p0)") +
                                                 ", " + readable_date("COALESCE(date_to, :p1)") +
                                                 ", salary_extra_oid, " + readable_number("sum_a") + ", " +
                                                 readable_number("percentage") +
                                                 ", salary_code_id FROM extra_charges ORDER BY employee_id, id",
                                             kExtraChargeFields, {open_start(), open_end()});
            })
      ->Clone();
}

Answer personal_extra_charges(Company& company, ParameterText& parameter) {
  const std::string key = parameter.text();
  parameter.end();
  const auto employee = id_of_key(key, kEmployeeType);
  if (!employee) throw Error(ErrorKind::kTypeMismatch, "„" + key + "“ nėra darbuotojo raktas.");
  Database& database = company.database();
  auto charges = database.read(
      "SELECT guid, date_from, date_to, sum_a, salary_extra_oid, percentage, salary_code_id, comment"
      " FROM extra_charges WHERE employee_id = :p0 ORDER BY id",
      kPersonalChargeFields, {*employee});
  if (charges->RecordCount() > 0) return charges;
  const auto known = database.read("SELECT id FROM employees WHERE id = :p0", {{"ID", FieldType::kInt32}}, {*employee});
  if (known->RecordCount() > 0) return charges;
  throw Error(ErrorKind::kNotFound, "Nėra darbuotojo, kurio raktas yra „" + key + "“.");
}

Answer salary_extra_row(Company& company, ParameterText& parameter) {
  const std::string key = parameter.text();
  const Date date = parameter.date();
  parameter.end();
  const auto of_key = positions(company)->Clone();
  of_key->Filter("Key = " + quoted(key) + " AND DateFrom <= #" + date_text(date) + "#");
  const FieldHandle date_to = of_key->handle("DateTo");
  // Rows stand by date: the last one that has begun is in force, unless it has ended.
  if (of_key->RecordCount() > 0) of_key->MoveLast();
  const bool in_force =
      of_key->RecordCount() > 0 && (of_key->is_null(date_to) || of_key->field(date_to).to_date() >= date);
  return current_row_only(*of_key, in_force);
}

Answer salary_extra_row_by_id(Company& company, ParameterText& parameter) {
  const std::int32_t id = parameter.whole();
  parameter.date();
  parameter.end();
  return rows_that_pass(*positions(company), "ID = " + std::to_string(id));
}

}  // namespace quor::requests
