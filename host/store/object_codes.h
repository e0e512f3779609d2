// The object-type codes of the host, each once, and how a key is made of a code and an ID (frame/contract/object_key.h
// reads it).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/contract/object_key.h"

namespace quor {

inline constexpr char kDepartmentType[] = "O0001604";
inline constexpr char kEmployeeType[] = "O0400100";
inline constexpr char kPersonalChargeType[] = "O0400110";
inline constexpr char kConstantType[] = "O0400600";
inline constexpr char kSalaryExtensionType[] = "O0402000";
inline constexpr char kCategoryType[] = "O0402200";
inline constexpr char kSettingsType[] = "O0402300";

std::string object_key(std::string_view type, std::int32_t id);

}  // namespace quor
