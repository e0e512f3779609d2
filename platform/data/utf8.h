// Text is UTF-8; lengths and positions count characters.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace quor {

// Every byte that does not continue a character begins one.
inline std::size_t character_count(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

}  // namespace quor
