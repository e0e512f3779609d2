// What the loaded plug-ins have registered: layout sections with their groups, object types, icons.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "frame/contract/object_registry.h"

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

  // "Velmora" and type "O0402000" give "Velmora.UIO0402000" for the data side (`side` "UIO").
  std::string class_id(const std::string& side, const std::string& object_type) const {
    return library + "." + side + object_type.substr(1);
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

// The registration object that a plug-in receives; several may write into one `Registrations`.
class Registry : public ObjectRegistry {
 public:
  explicit Registry(Registrations& registrations)
      : registrations_(registrations), number_(++registrations.registries) {}

  std::shared_ptr<Layout> AddLayout(const std::string& layout_code, const std::string& layout_code_again,
                                    const std::string& caption, const std::string& key) override;
  void RegisterObjectType(const std::string& library, const std::string& object_type,
                          const std::string& caption) override;
  void AddLayoutIcon(const std::string& key, const Picture& picture) override;
  void AddObjectIcon(const std::string& key, const Picture& picture) override;

 private:
  Registrations& registrations_;
  std::size_t number_;
};

}  // namespace quor
