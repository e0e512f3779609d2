// The choice of a position category for a salary-extension row, and the row's own fields.
#include "engine/salary_engine.h"
#include "frame/catalogue.h"
#include "frame/computed_row.h"
#include "frame/object_types.h"

namespace velmora {

using quor::FieldType;
using quor::MethodResult;

namespace {

constexpr double kFactorOfNone = 1.0;  // of a category without a factor at the date

// The factor of the last row, in the rows' own order, dated on or before the date. The filter stays on the rows.
double factor_at(quor::Recordset* rows, quor::Date date) {
  if (!catalogue::filter_test(rows, "DateFrom <= " + catalogue::quoted(date))) return kFactorOfNone;
  rows->MoveLast();
  return catalogue::null_to_double(rows->field("Factor"));
}

}  // namespace

MethodResult UIO0402000::handle_select_event(quor::Date date, std::int32_t constant_id, double constant_value,
                                             std::int32_t current_category) {
  const std::string identity = catalogue::pick_object(application(), kCategoryType, "");
  const std::string key = quor::key_of_identity(identity);
  const auto category = quor::id_of_key(key);
  // An answer without "#" names no category.
  if (key == identity || !category || *category == current_category) return {};

  const auto object = application().GetQuorObjectUIO(key);
  if (!object) return {};
  const std::string name = catalogue::null_to_text(object->Fields()["Name"].Value());
  const double factor = factor_at(catalogue::rows_of(*object).get(), date);
  return {.Code = 0,
          .Message = {},
          .Value = computed_row({{{"ConstantID", FieldType::kInt32}, constant_id},
                                 {{"ConstantValue", FieldType::kDouble}, constant_value},
                                 {{"TariffFactorID", FieldType::kInt32}, *category},
                                 {{"TariffFactorValue", FieldType::kDouble}, factor},
                                 {{"TariffFactorName", FieldType::kText, kComputedTextSize}, name}})};
}

// Each field is written only when its value changes, so that filling a row with what it holds leaves it untouched.
MethodResult UIO0402000::fill_extra_uio_fields(const quor::NamedMembers& source, const std::string& record_id,
                                               bool contract) {
  const std::int32_t constant_type = catalogue::null_to_int32(source.member("mConstantID"));
  const std::int32_t category = catalogue::null_to_int32(source.member("mTariffFactorID"));
  const quor::Fields fields = Fields();
  quor::Field owner = fields[contract ? "PersonalContractGUID" : "SalaryPersonalNormGUID"];
  quor::Field constant_field = fields["SalaryConstantTypeID"];
  quor::Field category_field = fields["OfficeEmployeeCategoryID"];
  // Everything converts before the first write.
  const bool other_owner = catalogue::null_to_text(owner.Value()) != record_id;
  const bool other_constant = catalogue::null_to_int32(constant_field.Value()) != constant_type;
  const bool other_category = catalogue::null_to_int32(category_field.Value()) != category;

  if (other_owner) owner.Value(record_id);
  if (other_constant) constant_field.Value(constant_type);
  if (other_category) category_field.Value(category);
  return {};
}

}  // namespace velmora
