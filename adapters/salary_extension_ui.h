// `UI0402000`: the object UI of the salary extension. The type has no menu.
#pragma once

#include "adapters/object_ui.h"

namespace velmora {

class UI0402000 : public ObjectUI {
 public:
  explicit UI0402000(quor::QuorApplication& application);

 private:
  std::shared_ptr<quor::QuorObjectUIO> new_data_object() override;
  std::string list_parameter(const std::string& parameter) const override;
};

}  // namespace velmora
