// The pieces of a position's salary: base tariff at the date, category and its factor at the date.
#include "engine/salary_engine.h"
#include "frame/catalogue.h"
#include "frame/computed_row.h"

namespace velmora {

using quor::FieldType;
using quor::MethodResult;

MethodResult UIO0402000::salary_components(quor::QuorObjectUIO& document, const std::string& key, bool hourly,
                                           quor::Date date) {
  Position position;
  if (!find_in_document(document, key, position)) {
    position = requested_position("SalaryExtraRow", catalogue::quoted(key) + "," + catalogue::quoted(date));
  }
  return components_of(position, hourly, date);
}

MethodResult UIO0402000::salary_components_by_id(std::int32_t row_id, bool hourly, quor::Date date) {
  const std::string parameter = std::to_string(row_id) + "," + catalogue::quoted(date);
  return components_of(requested_position("SalaryExtraRowByID", parameter), hourly, date);
}

// The document may hold rows that are edited and not stored yet: these win over the store.
bool UIO0402000::find_in_document(quor::QuorObjectUIO& document, const std::string& key, Position& position) {
  const MethodResult collection = document.Properties("ExtraUIOCollection", "");
  if (collection.Code != 0 || collection.Value.kind() != quor::Variant::Kind::kArray) return false;
  for (const quor::Variant& element : collection.Value.array()) {
    const auto row = quor::to_object<quor::QuorObjectUIO>(element);
    if (!row) continue;
    const auto text = [&](const char* name) { return catalogue::null_to_text(row->Fields()[name].Value()); };
    if (text("PersonalContractGUID") + text("SalaryPersonalNormGUID") != key) continue;
    position.constant_type = catalogue::null_to_int32(row->Fields()["SalaryConstantTypeID"].Value());
    position.category = catalogue::null_to_int32(row->Fields()["OfficeEmployeeCategoryID"].Value());
    return true;
  }
  return false;
}

// A position that cannot be read is shown and counts as one without tariff type and category.
UIO0402000::Position UIO0402000::requested_position(const std::string& request_name, const std::string& parameter) {
  const MethodResult& rows = request(request_name, parameter);
  if (rows.Code != 0) {
    application().MessageBox(std::string("SalaryExtraRow: Klaida!") + quor::kLineBreak + rows.Message,
                             quor::BoxIcon::kCritical, quor::BoxButtons::kOk, title());
    return {};
  }
  const auto& row = rows.Value.record_set();
  if (!row || row->RecordCount() == 0) return {};
  return {.constant_type = catalogue::null_to_int32(row->field("SalaryConstantTypeID")),
          .category = catalogue::null_to_int32(row->field("OfficeEmployeeCategoryID"))};
}

MethodResult UIO0402000::components_of(const Position& position, bool hourly, quor::Date date) {
  // No tariff is no failure here: both fields are 0 then.
  const MethodResult constant = salary_constant(hourly, date, position.constant_type);
  const auto& constant_row = constant.Value.record_set();

  std::int32_t category_id = 0;
  double factor = 0.0;
  std::string name;
  MethodResult result;
  if (position.category > 0) {
    const MethodResult& category =
        request("OfficeEmployeeCategory", std::to_string(position.category) + "," + catalogue::quoted(date));
    const auto row = category.Code == 0 ? category.Value.record_set() : nullptr;
    if (category.Code != 0) {
      result.Code = quor::kPluginFailure;
      result.Message = std::string("GetSalaryComponents: Klaida!") + quor::kLineBreak + category.Message;
    } else if (row && row->RecordCount() > 0) {
      category_id = position.category;
      factor = catalogue::null_to_double(row->field("Factor"));
      name = catalogue::null_to_text(row->field("Name"));
    }
  }
  result.Value = computed_row({{{"ConstantID", FieldType::kInt32}, constant_row->field("ConstantID")},
                               {{"ConstantValue", FieldType::kDouble}, constant_row->field("ConstantValue")},
                               {{"TariffFactorID", FieldType::kInt32}, category_id},
                               {{"TariffFactorValue", FieldType::kDouble}, factor},
                               {{"TariffFactorName", FieldType::kText, kComputedTextSize}, name}});
  return result;
}

}  // namespace velmora
