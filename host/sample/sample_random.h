// Numbers that look random and are the same on every machine: the library's distributions are not.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quor {

class SampleRandom {
 public:
  explicit SampleRandom(std::uint64_t seed) : state_(seed) {}

  // SplitMix64.
  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
  }

  // 0 … bound - 1; bound is 1 or more.
  std::int32_t below(std::int32_t bound) {
    return static_cast<std::int32_t>(((next() >> 32) * static_cast<std::uint64_t>(bound)) >> 32);
  }

  template <typename T>
  const T& one_of(std::span<const T> choices) {
    return choices[static_cast<std::size_t>(below(static_cast<std::int32_t>(choices.size())))];
  }

  // "8F3B…-4…-…": upper case, without braces.
  std::string guid() {
    constexpr std::uint64_t kVersionBits = 0xF000U;
    constexpr std::uint64_t kVariantBit = 0x8000000000000000U;
    const std::uint64_t halves[] = {(next() & ~kVersionBits) | 0x4000U, (next() >> 2) | kVariantBit};
    std::string text;
    for (int digit = 0; digit < 32; ++digit) {
      if (digit == 8 || digit == 12 || digit == 16 || digit == 20) text += '-';
      text += "0123456789ABCDEF"[halves[digit / 16] >> (60 - digit % 16 * 4) & 0xFU];
    }
    return text;
  }

 private:
  std::uint64_t state_;
};

}  // namespace quor
