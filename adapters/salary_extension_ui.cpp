#include "adapters/salary_extension_ui.h"

#include "engine/salary_engine.h"
#include "frame/object_types.h"

namespace velmora {

UI0402000::UI0402000(quor::QuorApplication& application) : ObjectUI(application, kEngineCaption) {}

std::shared_ptr<quor::QuorObjectUIO> UI0402000::new_data_object() {
  return std::make_shared<UIO0402000>(application());
}

std::string UI0402000::list_parameter(const std::string& parameter) const { return list_without_parent(parameter); }

}  // namespace velmora
