#include "adapters/category_object.h"

#include "frame/catalogue.h"
#include "frame/object_types.h"

namespace velmora {

namespace {

// The printed list and the settings prefill take what is there today: neither request has a parameter.
constexpr NamedData kData[] = {
    {"CategoryPreview", DataSource::kParameterless},
    {"OfficeEmployeeSettings", DataSource::kParameterless},
};

}  // namespace

UIO0402200::UIO0402200(quor::QuorApplication& application) : ForwardingObject(application, kCategoryType, kData) {}

quor::MethodResult UIO0402200::Methods(const std::string& name, const quor::Parameters& parameters) {
  if (name != "DeleteCategoryRow") return {};
  return {.Code = 0, .Message = {}, .Value = !parameters.empty() && delete_row(parameters.front().to_text())};
}

// The filter stays on the rows: whoever asked removes it.
bool UIO0402200::delete_row(const std::string& guid) {
  const auto rows = catalogue::rows_of(*this);
  if (!catalogue::find_by_guid(rows.get(), guid)) return false;
  rows->Delete();
  application().run_pending_events();
  return true;
}

}  // namespace velmora
