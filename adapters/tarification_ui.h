// `UI0402100`: the object UI of tarification. The type has no menu.
#pragma once

#include "adapters/object_ui.h"

namespace velmora {

class UI0402100 : public ObjectUI {
 public:
  explicit UI0402100(quor::QuorApplication& application);

 private:
  std::shared_ptr<quor::QuorObjectUIO> new_data_object() override;
  std::string list_parameter(const std::string& parameter) const override;
};

}  // namespace velmora
