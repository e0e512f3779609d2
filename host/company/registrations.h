// What the loaded plug-ins have registered: layout sections with their groups, object types, icons. Rights are granted
// by these components, and the windows show them.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "frame/contract/plugin_entry.h"

namespace quor {

struct RegisteredGroup {
  std::string object_type;
  std::string caption;
  std::string key;
  std::vector<std::string> objects;
};

struct RegisteredLayout {
  std::string code;
  std::string caption;
  std::string key;
  std::vector<std::shared_ptr<RegisteredGroup>> groups;
  std::size_t registry;  // which registration object it came by: one a plug-in
};

struct RegisteredType {
  std::string library;
  std::string caption;
  std::size_t registry;

  // The identifier of the type's class (see plugin_entry.h).
  std::string class_id(std::string_view side, const std::string& object_type) const {
    return type_class_id(library, side, object_type);
  }
};

// Everything registered, in one place for the whole program.
struct Registrations {
  std::vector<std::shared_ptr<RegisteredLayout>> layouts;
  std::map<std::string, RegisteredType> types;  // by object-type code
  std::map<std::string, Picture> layout_icons;  // by key
  std::map<std::string, Picture> object_icons;
  std::size_t registries = 0;  // handed out so far
};

}  // namespace quor
