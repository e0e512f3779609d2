// Base tariffs: the salary constant of a type that is in force at a date.
#include "engine/salary_engine.h"
#include "frame/catalogue.h"
#include "frame/computed_row.h"

namespace velmora {

using quor::FieldType;
using quor::MethodResult;

namespace {

MethodResult constant_row(const quor::Variant& id, const quor::Variant& value) {
  return {
      .Code = 0,
      .Message = {},
      .Value = computed_row({{{"ConstantID", FieldType::kInt32}, id}, {{"ConstantValue", FieldType::kDouble}, value}})};
}

}  // namespace

MethodResult UIO0402000::salary_constant(bool hourly, quor::Date date, std::int32_t constant_type) {
  if (constant_type == 0) constant_type = base_tariff_type(hourly, date);
  if (constant_type == 0) return constant_row(0, 0.0);

  const MethodResult& constants = request("SalaryConstants", catalogue::quoted(date));
  if (constants.Code != 0) {
    MethodResult failure = constant_row(0, 0.0);
    failure.Code = quor::kPluginFailure;
    failure.Message = std::string("GetSalaryConstant: Klaida!") + quor::kLineBreak + constants.Message;
    return failure;
  }
  const auto& rows = constants.Value.record_set();
  if (!catalogue::filter_test(rows.get(), "ConstantTypeID = " + std::to_string(constant_type))) {
    return constant_row(0, 0.0);
  }
  return constant_row(catalogue::null_to_int32(rows->field("ConstantTypeID")),
                      catalogue::null_to_double(rows->field("ConstantValue")));
}

// The constant type that the settings in force name as base tariff; 0 when there are none, or when they cannot be read
// (`Properties` has shown why).
std::int32_t UIO0402000::base_tariff_type(bool hourly, quor::Date date) {
  const MethodResult& settings = request("OfficeEmployeeSettings", catalogue::quoted(date));
  if (settings.Code != 0) return 0;
  const auto& rows = settings.Value.record_set();
  if (!rows || rows->RecordCount() == 0) return 0;
  return catalogue::null_to_int32(rows->field(hourly ? "BaseHourTariffID" : "BaseMonthTariffID"));
}

}  // namespace velmora
