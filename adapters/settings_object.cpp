#include "adapters/settings_object.h"

#include "frame/object_types.h"

namespace velmora {

namespace {

constexpr NamedData kData[] = {
    {"Parent", DataSource::kParent},
    {"Indications", DataSource::kParameterless},
    {"SalaryCodes", DataSource::kParameterless},
    {"OfficeEmployeeSettings", DataSource::kRequest},
    {"SalaryConstants", DataSource::kRequest},
};

}  // namespace

UIO0402300::UIO0402300(quor::QuorApplication& application) : ForwardingObject(application, kSettingsType, kData) {}

}  // namespace velmora
