// The library's pictures of type icon, from its embedded resources.
#pragma once

#include <string_view>

#include "frame/contract/object_registry.h"

namespace velmora {

// The icon of that name, in any letter case; throws NotFound naming it.
quor::Picture find_icon(std::string_view name);

}  // namespace velmora
