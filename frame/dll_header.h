// `DLLHeader`: tells the host the layout, the group, the object types and the icons of civil servants' pay.
#pragma once

#include <memory>
#include <string_view>

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_header.h"

namespace velmora {

// Finds an icon among the library's resources by name, in any letter case; throws NotFound.
using IconLookup = quor::Picture (*)(std::string_view name);

class DLLHeader : public quor::QuorHeader {
 public:
  DLLHeader(quor::QuorApplication& application, IconLookup find_icon)
      : application_(application), find_icon_(find_icon) {}

  void DllInicialize() override;

 private:
  void add_layout();
  void register_object_types();
  void add_icons();

  quor::QuorApplication& application_;
  IconLookup find_icon_;
  std::shared_ptr<quor::ObjectRegistry> registry_;  // held as long as the header lives
};

}  // namespace velmora
