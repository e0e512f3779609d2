#include "engine/salary_engine.h"

#include <string_view>

#include "engine/method_table.h"
#include "platform/data/error.h"

namespace velmora {

namespace {

enum class Parameter { kNone, kCallers };

struct NamedRecordSet {
  std::string_view name;
  Parameter parameter;
};

// What `Properties` asks the business object for, as "Get" + the name.
constexpr NamedRecordSet kRecordSets[] = {
    {"OfficeEmployeeExperience", Parameter::kNone},   {"SalaryCodes", Parameter::kNone},
    {"OfficeEmployeeExtraCharges", Parameter::kNone}, {"SalaryExtraRow", Parameter::kCallers},
    {"SalaryConstants", Parameter::kCallers},         {"OfficeEmployeeCategory", Parameter::kCallers},
    {"SalaryExtraRowByID", Parameter::kCallers},      {"OfficeEmployeeSettings", Parameter::kCallers},
    {"OfficeEmployeePreview", Parameter::kCallers},   {"OfficeEmployeeSurcharge", Parameter::kCallers},
    {"PersonalExtraCharges", Parameter::kCallers},
};

}  // namespace

UIO0402000::UIO0402000(quor::QuorApplication& application)
    : application_(application), engine_title_(application.Title()), standard_(application.NewStandardObjectUIO()) {}

quor::MethodResult UIO0402000::Properties(const std::string& name, const std::string& parameter) {
  if (name == "Parent") return parent();
  for (const NamedRecordSet& record_set : kRecordSets) {
    if (record_set.name != name) continue;
    const bool callers = record_set.parameter == Parameter::kCallers;
    quor::MethodResult result = BO()->RunMethod("Get" + name, callers ? parameter : quor::kNoParameter, 0);
    if (result.Code != 0) show_failure(result.Message);
    return result;
  }
  return {};
}

quor::MethodResult UIO0402000::Methods(const std::string& name, const quor::Parameters& parameters) {
  quor::MethodResult result = run_method(*this, name, parameters);
  if (result.Code == quor::kPluginFailure) show_failure(result.Message);
  return result;
}

const quor::MethodResult& UIO0402000::request(const std::string& name, const std::string& parameter) {
  last_properties_result_ = Properties(name, parameter);
  return last_properties_result_;
}

void UIO0402000::show_failure(const std::string& message) {
  application_.MessageBox(message, quor::BoxIcon::kExclamation, quor::BoxButtons::kOk, engine_title_);
}

// The parent's identifier is the object's own OID and the record's ParentID joined as text.
quor::MethodResult UIO0402000::parent() {
  const auto ui = UI();
  if (!ui) throw quor::Error(quor::ErrorKind::kObjectMissing, "Objektas „" + OID() + "“ neturi savo sąsajos (UI).");
  const std::string identifier = OID() + quor::null_to_text(Fields()["ParentID"].Value());
  return {.Code = 0, .Message = {}, .Value = ui->GetQuorObject(identifier)};
}

}  // namespace velmora
