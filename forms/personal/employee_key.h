// Which employee an object key names.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>

#include "frame/contract/quor_object_uio.h"

namespace velmora {

// The ID behind the key's type code; none for a key that ends with its type code or goes on with anything but a number.
inline std::optional<std::int32_t> employee_of(const std::string& key) {
  if (key.size() <= quor::kTypeCodeLength) return std::nullopt;
  std::int32_t id = 0;
  const char* const end = key.data() + key.size();
  const auto [stop, fault] = std::from_chars(key.data() + quor::kTypeCodeLength, end, id);
  if (fault != std::errc() || stop != end) return std::nullopt;
  return id;
}

}  // namespace velmora
