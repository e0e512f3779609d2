// Text is UTF-8; lengths and positions count characters.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace quor {

// Every byte that does not continue a character begins one.
inline std::size_t character_count(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

// Where the character of that number begins; the text's end for every number past it.
inline std::size_t byte_position(std::string_view text, std::size_t character) {
  std::size_t byte = 0;
  for (; byte < text.size(); ++byte) {
    if ((static_cast<unsigned char>(text[byte]) & 0xC0U) == 0x80U) continue;
    if (character == 0) break;
    --character;
  }
  return byte;
}

inline constexpr char32_t kStrayByte = 0x110000;  // the first number that is no character

// Takes the next character off the front of `text`, which is not empty. A byte that belongs to no character comes as
// kStrayByte + the byte.
char32_t take_character(std::string_view& text);

// The character as text; "" for a number that is no character.
std::string encoded(char32_t character);

}  // namespace quor
