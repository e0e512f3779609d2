#include "platform/data/case_folding.h"

#include <algorithm>
#include <iterator>

#include "platform/data/utf8.h"

namespace quor {
namespace {

// Capitals first..last, every `step`-th, fold to the letter `shift` further on.
struct FoldRange {
  char32_t first;
  char32_t last;
  std::int32_t shift;
  std::uint32_t step = 1;
};

constexpr FoldRange kRanges[] = {
    // Basic Latin, Latin-1, Latin Extended-A
    {0x41, 0x5A, 32},
    {0xB5, 0xB5, 775},
    {0xC0, 0xD6, 32},
    {0xD8, 0xDE, 32},
    {0x100, 0x12E, 1, 2},
    {0x132, 0x136, 1, 2},
    {0x139, 0x147, 1, 2},
    {0x14A, 0x176, 1, 2},
    {0x178, 0x178, -121},
    {0x179, 0x17D, 1, 2},
    {0x17F, 0x17F, -268},
    // Greek and Coptic
    {0x370, 0x372, 1, 2},
    {0x376, 0x376, 1},
    {0x37F, 0x37F, 116},
    {0x386, 0x386, 38},
    {0x388, 0x38A, 37},
    {0x38C, 0x38C, 64},
    {0x38E, 0x38F, 63},
    {0x391, 0x3A1, 32},
    {0x3A3, 0x3AB, 32},
    {0x3C2, 0x3C2, 1},
    {0x3CF, 0x3CF, 8},
    {0x3D0, 0x3D0, -30},
    {0x3D1, 0x3D1, -25},
    {0x3D5, 0x3D5, -15},
    {0x3D6, 0x3D6, -22},
    {0x3D8, 0x3EE, 1, 2},
    {0x3F0, 0x3F0, -54},
    {0x3F1, 0x3F1, -48},
    {0x3F4, 0x3F4, -60},
    {0x3F5, 0x3F5, -64},
    {0x3F7, 0x3F7, 1},
    {0x3F9, 0x3F9, -7},
    {0x3FA, 0x3FA, 1},
    {0x3FD, 0x3FF, -130},
    // Cyrillic and its supplement
    {0x400, 0x40F, 80},
    {0x410, 0x42F, 32},
    {0x460, 0x480, 1, 2},
    {0x48A, 0x4BE, 1, 2},
    {0x4C0, 0x4C0, 15},
    {0x4C1, 0x4CD, 1, 2},
    {0x4D0, 0x52E, 1, 2},
};

char32_t take_folded(std::string_view& text) { return fold_case(take_character(text)); }

}  // namespace

char32_t fold_case(char32_t character) {
  if (character < 0x80) return static_cast<char32_t>(fold_ascii(static_cast<char>(character)));
  const auto* range = std::upper_bound(std::begin(kRanges), std::end(kRanges), character,
                                       [](char32_t c, const FoldRange& r) { return c < r.first; });
  --range;  // the first range begins below
  if (character > range->last || (character - range->first) % range->step != 0) return character;
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + range->shift);
}

int compare_folded(std::string_view left, std::string_view right) {
  // What is the same to the byte needs no folding; most texts that are compared are the same, or differ early.
  const auto same = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first - left.begin();
  auto start = static_cast<std::size_t>(same);
  while (start > 0 && start < left.size() && (static_cast<unsigned char>(left[start]) & 0xC0U) == 0x80U) --start;
  left.remove_prefix(start);
  right.remove_prefix(start);
  while (!left.empty() && !right.empty()) {
    const char32_t a = take_folded(left);
    const char32_t b = take_folded(right);
    if (a != b) return a < b ? -1 : 1;
  }
  return static_cast<int>(!left.empty()) - static_cast<int>(!right.empty());
}

bool starts_with_folded(std::string_view text, std::string_view prefix) {
  while (!prefix.empty()) {
    if (text.empty() || take_folded(text) != take_folded(prefix)) return false;
  }
  return true;
}

bool contains_folded(std::string_view text, std::string_view part) {
  while (!starts_with_folded(text, part)) {
    if (text.empty()) return false;
    take_character(text);
  }
  return true;
}

std::uint64_t hash_folded(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325U;  // FNV-1a over folded characters
  while (!text.empty()) hash = (hash ^ take_folded(text)) * 0x100000001B3U;
  return hash;
}

}  // namespace quor
