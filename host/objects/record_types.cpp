#include "host/objects/record_types.h"

#include <algorithm>

#include "host/store/object_codes.h"

namespace quor {

namespace {

constexpr char kGuidField[] = "GUID";

RecordField guid() { return {{kGuidField, FieldType::kText}, "guid", /*required=*/true, /*unique=*/true}; }

RecordField required(const char* name, FieldType type, const char* column, const char* references = nullptr) {
  return {{name, type}, column, /*required=*/true, /*unique=*/false, references};
}

RecordField reference(const char* name, const char* column, const char* references) {
  return {{name, FieldType::kInt32}, column, /*required=*/false, /*unique=*/false, references};
}

RecordType employees() {
  return {.object_type = kEmployeeType,
          .table = "employees",
          .plural = "darbuotojų kortelių",
          .fields = {required("DepartmentID", FieldType::kInt32, "department_id", "departments"),
                     required("Preview", FieldType::kText, "name"),
                     {{"UsrAccDate", FieldType::kDate}, "usr_acc_date"}},
          .name_field = "Preview",
          .rows = std::nullopt,
          .read_only = true};
}

RecordType personal_charges() {
  return {.object_type = kPersonalChargeType,
          .table = "extra_charges",
          .plural = "darbuotojų priedų",
          .fields = {guid(),
                     required("PersonalID", FieldType::kInt32, "employee_id", "employees"),
                     {{"DateFrom", FieldType::kDate}, "date_from"},
                     {{"DateTo", FieldType::kDate}, "date_to"},
                     {{"SumA", FieldType::kDouble}, "sum_a"},
                     {{"Percentage", FieldType::kDouble}, "percentage"},
                     {{"SalaryExtraOID", FieldType::kText}, "salary_extra_oid"},
                     reference("SalaryCodeID", "salary_code_id", "salary_codes"),
                     {{"Comment", FieldType::kText}, "comment"}},
          .name_field = "Comment",
          .rows = std::nullopt,
          .read_only = false};
}

RecordType positions() {
  return {kSalaryExtensionType,
          "positions",
          "darbuotojų pareigybių",
          {required("ParentID", FieldType::kInt32, "employee_id", "employees"),
           required("PersonalContractGUID", FieldType::kText, "contract_guid"),
           required("SalaryPersonalNormGUID", FieldType::kText, "norm_guid"),
           {{"SalaryConstantTypeID", FieldType::kInt32}, "constant_type_id"},
           reference("OfficeEmployeeCategoryID", "category_id", "categories"),
           required("Share", FieldType::kDouble, "share"),
           required("DateFrom", FieldType::kDate, "date_from"),
           {{"DateTo", FieldType::kDate}, "date_to"}}};
}

RecordType categories() {
  return {
      kCategoryType,
      "categories",
      "pareigybių kategorijų",
      {guid(), {{"Name", FieldType::kText}, "name"}},
      "Name",
      ChildRows{"Rows",
                "category_rows",
                "category_id",
                "OfficeEmployeeCategoryGUID",
                "date_from NULLS FIRST, id",
                {guid(), {{"DateFrom", FieldType::kDate}, "date_from"}, {{"Factor", FieldType::kDouble}, "factor"}}}};
}

RecordType settings() {
  return {kSettingsType,
          "settings",
          "valstybės tarnautojų nustatymų",
          {guid(),
           {{"DateFrom", FieldType::kDate}, "date_from"},
           reference("BaseMonthTariffID", "base_month_tariff_id", "constant_types"),
           {{"BaseHourTariffID", FieldType::kInt32}, "base_hour_tariff_id"},
           {{"PersonalTimeCodeIDList", FieldType::kText}, "personal_time_code_id_list"},
           {{"ExtraChargePercentage", FieldType::kDouble}, "extra_charge_percentage"},
           {{"SurChargePercentage", FieldType::kDouble}, "surcharge_percentage"},
           {{"TotalChargePercentage", FieldType::kDouble}, "total_charge_percentage"}},
          "DateFrom",
          ChildRows{"Rows",
                    "settings_rows",
                    "settings_id",
                    "OfficeEmployeeSettingGUID",
                    "year_from NULLS FIRST, id",
                    {guid(),
                     {{"YearFrom", FieldType::kInt16}, "year_from"},
                     {{"YearTo", FieldType::kInt16}, "year_to"},
                     {{"Percentage", FieldType::kDouble}, "percentage"}}}};
}

const std::vector<RecordType>& record_types() {
  static const std::vector<RecordType> types = {employees(), personal_charges(), positions(), categories(), settings()};
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
