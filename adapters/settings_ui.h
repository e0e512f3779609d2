// `UI0402300`: the object UI of the civil-servant settings; its menu opens the settings editor and deletes a version.
#pragma once

#include "adapters/object_ui.h"

namespace velmora {

class UI0402300 : public ObjectUI {
 public:
  explicit UI0402300(quor::QuorApplication& application);

  std::vector<quor::MenuEntry> GetMenu(const std::string& context, const std::string& object_type,
                                       const std::string& user) override;
  // An unknown entry does nothing.
  quor::ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                              const std::string& user) override;

 private:
  std::shared_ptr<quor::QuorObjectUIO> new_data_object() override;

  quor::ClickResult edit(const Opened& settings);
  quor::ClickResult create();
  quor::ClickResult remove(const std::string& object);
};

}  // namespace velmora
