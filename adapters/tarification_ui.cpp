#include "adapters/tarification_ui.h"

#include "adapters/tarification_object.h"
#include "frame/object_types.h"

namespace velmora {

UI0402100::UI0402100(quor::QuorApplication& application) : ObjectUI(application, kTarificationCaption) {}

std::shared_ptr<quor::QuorObjectUIO> UI0402100::new_data_object() {
  return std::make_shared<UIO0402100>(application());
}

std::string UI0402100::list_parameter(const std::string& parameter) const { return list_without_parent(parameter); }

}  // namespace velmora
