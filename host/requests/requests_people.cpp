// Requests about people: departments, employees, their length of service, charges and positions.
#include "frame/contract/open_bounds.h"
#include "host/company/readable_columns.h"
#include "host/company/row_copy.h"
#include "host/requests/rows_of_people.h"
#include "host/store/bound_list.h"
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

using People = std::vector<std::int32_t>;

// The condition on an employee's rows that they are of one of these; all for null.
std::string of_people(const People* people, std::vector<Variant>& values) {
  return people == nullptr ? "" : " WHERE employee_id IN (" + bound_list(*people, values) + ")";
}

// The rows of one key by date.
Answer read_positions(Database& database, const People* people) {
  std::vector<Variant> values = {kSalaryExtensionType};
  const std::string whose = of_people(people, values);
  return database.read(
      "SELECT id, :p0 || CAST(id AS TEXT), contract_guid, norm_guid, constant_type_id, category_id, share,"
      " contract_guid || norm_guid, " +
          readable_date("date_from") + ", " + readable_date("date_to") + " FROM positions" + whose +
          " ORDER BY positions.date_from, id",
      kPositionFields, values);
}

// All positions, read once for a month of requests that each ask for one.
Answer positions(Company& company) {
  return company.kept("Positions", [&] { return read_positions(company.database(), nullptr); });
}

Answer read_experience(Database& database, const People* people) {
  std::vector<Variant> values;
  const std::string whose = of_people(people, values);
  return database.read("SELECT employee_id, " + readable_date("date_experience") + ", " +
                           readable_service("experience_years") + ", " + readable_service("experience_months") +
                           " FROM experience" + whose + " ORDER BY employee_id",
                       kExperienceFields, values);
}

// Of all positions the one of the key that is in force at the date.
Answer position_in_force(Recordset& all, ParameterText& parameter) {
  const std::string key = parameter.text();
  const Date date = parameter.date();
  parameter.end();
  const auto of_key = all.Clone();
  of_key->Filter("Key = " + quoted(key) + " AND DateFrom <= #" + date_text(date) + "#");
  const FieldHandle date_to = of_key->handle("DateTo");
  // Rows stand by date: the last one that has begun is in force, unless it has ended.
  if (of_key->RecordCount() > 0) of_key->MoveLast();
  const bool in_force =
      of_key->RecordCount() > 0 && (of_key->is_null(date_to) || of_key->field(date_to).to_date() >= date);
  return current_row_only(*of_key, in_force);
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
  return company.kept("OfficeEmployeeExperience", [&] { return read_experience(company.database(), nullptr); })
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
  return position_in_force(*positions(company), parameter);
}

Answer salary_extra_row_by_id(Company& company, ParameterText& parameter) {
  const std::int32_t id = parameter.whole();
  parameter.date();
  parameter.end();
  return rows_that_pass(*positions(company), "ID = " + std::to_string(id));
}

RowsOfPeople::RowsOfPeople(Database& database, const People& people)
    : experience_(read_experience(database, &people)), positions_(read_positions(database, &people)) {}

Answer RowsOfPeople::office_employee_experience(ParameterText& parameter) const {
  parameter.none();
  return experience_->Clone();
}

Answer RowsOfPeople::salary_extra_row(ParameterText& parameter) const {
  return position_in_force(*positions_, parameter);
}

}  // namespace quor::requests
