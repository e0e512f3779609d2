// `UI0402200`: the object UI of the position categories; its menu opens the categories editor and, on the group that
// holds the type, the two previews, and it prints the list of categories.
#pragma once

#include "adapters/object_ui.h"

namespace velmora {

class UI0402200 : public ObjectUI {
 public:
  explicit UI0402200(quor::QuorApplication& application);

  std::vector<quor::MenuEntry> GetMenu(const std::string& context, const std::string& object_type,
                                       const std::string& user) override;
  // An unknown entry does nothing, and so does opening a category that is gone. Throws NotFound when the host has
  // no salary extension for a preview.
  quor::ClickResult ClickMenu(const std::string& object, const std::string& entry, const std::string& context,
                              const std::string& user) override;

 private:
  std::shared_ptr<quor::QuorObjectUIO> new_data_object() override;
  // The categories editor; eight characters or fewer are a new category.
  std::shared_ptr<quor::Form> desk_top_editor(const std::string& object) override;

  template <typename Preview>
  quor::ClickResult preview();
  quor::ClickResult new_settings();
  quor::ClickResult remove(const std::string& object);
  void print();
};

}  // namespace velmora
