#include "host/objects/record_types.h"

#include <algorithm>

#include "host/store/object_codes.h"

namespace quor {

std::vector<RecordField> record_fields(const char* table, std::initializer_list<NamedField> fields) {
  const StoredTable& described = stored_table(table);
  const std::vector<FieldInfo> stored = stored_fields(described);
  const auto type_of = [&](const StoredColumn& column) {
    return std::find_if(stored.begin(), stored.end(), [&](const auto& each) { return each.name == column.name; })->type;
  };
  std::vector<RecordField> all;
  for (const NamedField& field : fields) {
    const StoredColumn& column = stored_column(table, field.column);
    const bool unique = std::count(described.uniques.begin(), described.uniques.end(), StoredTable::Names{column.name});
    all.push_back({{field.name, field.type.value_or(type_of(column))}, &column, unique});
  }
  return all;
}

namespace {

constexpr char kGuidField[] = "GUID";

RecordType employees() {
  return {.object_type = kEmployeeType,
          .table = "employees",
          .plural = "darbuotojų kortelių",
          .fields = record_fields(
              "employees", {{"DepartmentID", "department_id"}, {"Preview", "name"}, {"UsrAccDate", "usr_acc_date"}}),
          .name_field = "Preview"};
}

RecordType personal_charges() {
  return {.object_type = kPersonalChargeType,
          .table = "extra_charges",
          .plural = "darbuotojų priedų",
          .fields = record_fields("extra_charges", {{kGuidField, "guid"},
                                                    {"PersonalID", "employee_id"},
                                                    {"DateFrom", "date_from"},
                                                    {"DateTo", "date_to"},
                                                    {"SumA", "sum_a"},
                                                    {"Percentage", "percentage"},
                                                    {"SalaryExtraOID", "salary_extra_oid"},
                                                    {"SalaryCodeID", "salary_code_id"},
                                                    {"Comment", "comment"}}),
          .name_field = "Comment"};
}

RecordType positions() {
  return {kSalaryExtensionType, "positions", "darbuotojų pareigybių",
          record_fields("positions", {{"ParentID", "employee_id"},
                                      {"PersonalContractGUID", "contract_guid"},
                                      {"SalaryPersonalNormGUID", "norm_guid"},
                                      {"SalaryConstantTypeID", "constant_type_id"},
                                      {"OfficeEmployeeCategoryID", "category_id"},
                                      {"Share", "share"},
                                      {"DateFrom", "date_from"},
                                      {"DateTo", "date_to"}})};
}

RecordType categories() {
  return {kCategoryType,
          "categories",
          "pareigybių kategorijų",
          record_fields("categories", {{kGuidField, "guid"}, {"Name", "name"}}),
          "Name",
          ChildRows{
              "Rows", "category_rows", "category_id", "OfficeEmployeeCategoryGUID", "date_from NULLS FIRST, id",
              record_fields("category_rows", {{kGuidField, "guid"}, {"DateFrom", "date_from"}, {"Factor", "factor"}})}};
}

RecordType settings() {
  return {kSettingsType,
          "settings",
          "valstybės tarnautojų nustatymų",
          record_fields("settings", {{kGuidField, "guid"},
                                     {"DateFrom", "date_from"},
                                     {"BaseMonthTariffID", "base_month_tariff_id"},
                                     {"BaseHourTariffID", "base_hour_tariff_id"},
                                     {"PersonalTimeCodeIDList", "personal_time_code_id_list"},
                                     {"ExtraChargePercentage", "extra_charge_percentage"},
                                     {"SurChargePercentage", "surcharge_percentage"},
                                     {"TotalChargePercentage", "total_charge_percentage"}}),
          "DateFrom",
          ChildRows{"Rows", "settings_rows", "settings_id", "OfficeEmployeeSettingGUID", "year_from NULLS FIRST, id",
                    record_fields("settings_rows", {{kGuidField, "guid"},
                                                    {"YearFrom", "year_from", FieldType::kInt16},
                                                    {"YearTo", "year_to", FieldType::kInt16},
                                                    {"Percentage", "percentage"}})}};
}

RecordType departments() {
  return {kDepartmentType, "departments", "padalinių",
          record_fields("departments", {{"Name", "name"}, {"ParentID", "parent_id"}}), "Name"};
}

RecordType constants() {
  return {kConstantType,
          "constant_types",
          "darbo užmokesčio konstantų",
          record_fields("constant_types", {{"Code", "code"}, {"Name", "name"}}),
          "Name",
          ChildRows{"Rows", "constant_values", "constant_type_id", nullptr, "date_from, id",
                    record_fields("constant_values", {{"DateFrom", "date_from"}, {"Value", "value"}})}};
}

// The number by which rows name a time code is the program's business.
RecordType time_codes() {
  return {.object_type = kTimeCodeType,
          .table = "indications",
          .plural = "laiko kodų",
          .fields = record_fields("indications", {{"Code", "code"}, {"Name", "code_name"}}),
          .name_field = "Name",
          .rows = std::nullopt,
          .only = "indication_code = 'WorkTime'"};
}

RecordType salary_codes() {
  return {kSalaryCodeType, "salary_codes", "darbo užmokesčio kodų",
          record_fields("salary_codes", {{"Code", "code"}, {"Name", "name"}}), "Name"};
}

const std::vector<RecordType>& record_types() {
  static const std::vector<RecordType> types = {employees(),  personal_charges(), positions(),
                                                categories(), settings(),         departments(),
                                                constants(),  time_codes(),       salary_codes()};
  return types;
}

}  // namespace

bool has_guid(const RecordType& type) {
  return std::any_of(type.fields.begin(), type.fields.end(),
                     [](const RecordField& field) { return field.info.name == kGuidField; });
}

const RecordType* record_type(std::string_view object_type) {
  const auto& types = record_types();
  const auto found =
      std::find_if(types.begin(), types.end(), [&](const RecordType& type) { return type.object_type == object_type; });
  return found == types.end() ? nullptr : &*found;
}

}  // namespace quor
