#include "platform/data/utf8.h"

namespace quor {

char32_t take_character(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC0 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF8 ? 4
                                           : 0;
  char32_t character = length <= 1 ? lead : lead & (0x7FU >> length);
  bool stray = length == 0 || length > text.size();
  for (std::size_t i = 1; !stray && i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    stray = (next & 0xC0) != 0x80;
    character = (character << 6) | (next & 0x3FU);
  }
  text.remove_prefix(stray ? 1 : length);
  return stray ? kStrayByte + lead : character;
}

std::string encoded(char32_t character) {
  const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  const auto tail = [&](unsigned shift) { return byte(0x80U | ((character >> shift) & 0x3FU)); };
  if (character < 0x80) return {byte(character)};
  if (character < 0x800) return {byte(0xC0U | (character >> 6)), tail(0)};
  if (character < 0x10000) return {byte(0xE0U | (character >> 12)), tail(6), tail(0)};
  if (character < kStrayByte) return {byte(0xF0U | (character >> 18)), tail(12), tail(6), tail(0)};
  return {};
}

}  // namespace quor
