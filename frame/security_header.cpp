#include "frame/security_header.h"

#include "frame/object_types.h"

namespace velmora {

std::vector<quor::SecurityComponent> SecurityHeader::GetComponentList() {
  std::vector<quor::SecurityComponent> components;
  add(kLayoutCaption, quor::library_component(kLayoutCode), quor::kLibraryComponent, "", components);
  add("Aplinkos peržūra", kLayoutKey, quor::kLayoutComponent, "", components);
  add(kGroupCaption, kGroupKey, quor::kLayoutComponent, "", components);
  return components;
}

void SecurityHeader::add(const std::string& caption, const std::string& key, std::int32_t kind,
                         const std::string& parent_key, std::vector<quor::SecurityComponent>& components) {
  components.push_back({.ParentKey = parent_key, .Key = key, .Caption = caption, .Kind = kind});
}

}  // namespace velmora
