// Text without regard to letter case: Unicode simple case folding (one character to one character), then code point by
// code point. No locale, nothing is trimmed or normalised.
//
// Folded ranges: Basic Latin, Latin-1, Latin Extended-A (the Lithuanian letters), Greek and Coptic, Cyrillic with its
// supplement (U+0000..U+017F, U+0370..U+03FF, U+0400..U+052F). Every other character equals itself only. Texts are
// UTF-8; a byte that is no part of a character counts as a character of its own, after all others.
#pragma once

#include <cstdint>
#include <string_view>

namespace quor {

char32_t fold_case(char32_t character);
// Of a byte: an ASCII letter is folded, any other byte is itself. A text keeps its length by it.
constexpr char fold_ascii(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte; }

// Below 0, 0, above 0: `left` stands before, is equal to, stands behind `right`.
int compare_folded(std::string_view left, std::string_view right);
bool starts_with_folded(std::string_view text, std::string_view prefix);
bool contains_folded(std::string_view text, std::string_view part);

// Equal for texts that compare equal.
std::uint64_t hash_folded(std::string_view text);

}  // namespace quor
