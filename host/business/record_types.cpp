#include "host/business/record_types.h"

#include <algorithm>

#include "host/business/object_codes.h"

namespace quor {

namespace {

const std::vector<RecordType>& record_types() {
  static const std::vector<RecordType> types = {
      {kSalaryExtensionType,
       "positions",
       {{{"ParentID", FieldType::kInt32}, "employee_id"},
        {{"PersonalContractGUID", FieldType::kText}, "contract_guid"},
        {{"SalaryPersonalNormGUID", FieldType::kText}, "norm_guid"},
        {{"SalaryConstantTypeID", FieldType::kInt32}, "constant_type_id"},
        {{"OfficeEmployeeCategoryID", FieldType::kInt32}, "category_id"},
        {{"Share", FieldType::kDouble}, "share"},
        {{"DateFrom", FieldType::kDate}, "date_from"},
        {{"DateTo", FieldType::kDate}, "date_to"}}},
      {kCategoryType,
       "categories",
       {{{"GUID", FieldType::kText}, "guid"}, {{"Name", FieldType::kText}, "name"}},
       "Name",
       ChildRows{"Rows",
                 "category_rows",
                 "category_id",
                 "OfficeEmployeeCategoryGUID",
                 "date_from, id",
                 {{{"GUID", FieldType::kText}, "guid"},
                  {{"DateFrom", FieldType::kDate}, "date_from"},
                  {{"Factor", FieldType::kDouble}, "factor"}}}},
  };
  return types;
}

}  // namespace

const RecordType* record_type(std::string_view object_type) {
  const auto& types = record_types();
  const auto found =
      std::find_if(types.begin(), types.end(), [&](const RecordType& type) { return type.object_type == object_type; });
  return found == types.end() ? nullptr : &*found;
}

}  // namespace quor
