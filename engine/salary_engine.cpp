#include "engine/salary_engine.h"

#include "frame/object_types.h"

namespace velmora {

namespace {

constexpr NamedData kData[] = {
    {"Parent", DataSource::kParent},
    {"OfficeEmployeeExperience", DataSource::kParameterless},
    {"SalaryCodes", DataSource::kParameterless},
    {"OfficeEmployeeExtraCharges", DataSource::kParameterless},
    {"SalaryExtraRow", DataSource::kRequest},
    {"SalaryConstants", DataSource::kRequest},
    {"OfficeEmployeeCategory", DataSource::kRequest},
    {"SalaryExtraRowByID", DataSource::kRequest},
    {"OfficeEmployeeSettings", DataSource::kRequest},
    {"OfficeEmployeePreview", DataSource::kRequest},
    {"OfficeEmployeeSurcharge", DataSource::kRequest},
    {"PersonalExtraCharges", DataSource::kRequest},
};

}  // namespace

UIO0402000::UIO0402000(quor::QuorApplication& application) : ForwardingObject(application, kEngineType, kData) {}

const quor::MethodResult& UIO0402000::request(const std::string& name, const std::string& parameter) {
  last_properties_result_ = Properties(name, parameter);
  return last_properties_result_;
}

}  // namespace velmora
