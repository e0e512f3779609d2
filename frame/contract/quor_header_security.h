// The list of the library's components that can be given user rights.
//
// Implemented by  the plug-in (`SecurityHeader`).
// Called by       the host's rights administration.
// States          none.
// Units           texts are UTF-8; captions are for the administrator.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/variant.h"

namespace quor {

struct SecurityComponent {
  std::string ParentKey;  // key of the enclosing component; empty at the top
  std::string Key;
  std::string Caption;
  std::int32_t Kind;  // kLibraryComponent or kLayoutComponent
};

inline constexpr std::int32_t kLibraryComponent = 10;  // the library itself
inline constexpr std::int32_t kLayoutComponent = 2;    // a layout section or a group

// The key of a library in which a layout section of that code was registered.
inline std::string library_component(const std::string& layout_code) { return "DLL|" + layout_code; }

class QuorHeaderSecurity : public Object {
 public:
  ~QuorHeaderSecurity() override;

  // A new collection, in the order in which the administrator sees it.
  virtual std::vector<SecurityComponent> GetComponentList() = 0;
};

}  // namespace quor
