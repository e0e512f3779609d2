// The keys by which objects are addressed: a type code of eight characters, then the record's decimal ID; the code
// alone is a type, or a new object. A picker answers identities, which may go on behind the key with "#" and the GUID.
//
// Implemented by  plain functions.
// Called by       both sides, wherever a key or an identity is read.
// States          none.
// Units           ASCII.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quor {

inline constexpr std::size_t kTypeCodeLength = 8;

// The text before the first "#".
inline std::string key_of_identity(std::string_view identity) {
  return std::string(identity.substr(0, identity.find('#')));
}

// The ID in a key, or in an identity's key; none when there is nothing behind the type code, or anything but a number.
inline std::optional<std::int32_t> id_of_key(std::string_view identity) {
  const std::string_view key = identity.substr(0, identity.find('#'));
  if (key.size() <= kTypeCodeLength) return std::nullopt;
  std::int32_t id = 0;
  const char* const end = key.data() + key.size();
  const auto [stop, fault] = std::from_chars(key.data() + kTypeCodeLength, end, id);
  if (fault != std::errc() || stop != end) return std::nullopt;
  return id;
}

}  // namespace quor
