// The object-type codes of the host, each once, and how a key is made of a code and an ID.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quor {

inline constexpr char kDepartmentType[] = "O0001604";
inline constexpr char kEmployeeType[] = "O0400100";
inline constexpr char kPersonalChargeType[] = "O0400110";
inline constexpr char kConstantType[] = "O0400600";
inline constexpr char kSalaryExtensionType[] = "O0402000";
inline constexpr char kCategoryType[] = "O0402200";
inline constexpr char kSettingsType[] = "O0402300";

std::string object_key(std::string_view type, std::int32_t id);
// The ID behind the eight characters of type code; none when the key carries no object.
std::optional<std::int32_t> id_of_key(std::string_view key);

}  // namespace quor
