// The types of the plug-in whose records the host stores, each code once; the host's own are part of the contract.
#pragma once

#include "frame/contract/host_types.h"
#include "frame/contract/object_key.h"

namespace quor {

inline constexpr char kSalaryExtensionType[] = "O0402000";
inline constexpr char kCategoryType[] = "O0402200";
inline constexpr char kSettingsType[] = "O0402300";

}  // namespace quor
