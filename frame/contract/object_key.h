// The keys by which objects are addressed: a type code of eight characters, then the record's decimal ID; the code
// alone is a type, or a new object. A picker answers identities, which may go on behind the key with "#" and the GUID.
//
// Implemented by  plain functions.
// Called by       both sides, wherever a key or an identity is read or made.
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

inline bool is_type_code(std::string_view text) { return text.size() == kTypeCodeLength; }

inline std::string object_key(std::string_view type, std::int32_t id) { return std::string(type) + std::to_string(id); }
inline std::string object_identity(const std::string& key, std::string_view guid) { return (key + '#').append(guid); }

// The text before the first "#".
inline std::string key_of_identity(std::string_view identity) {
  return std::string(identity.substr(0, identity.find('#')));
}
// The type code that the key begins with; all of a text that is shorter.
inline std::string type_of_key(std::string_view key) { return std::string(key.substr(0, kTypeCodeLength)); }

// Whether a whole type code is there, with an object behind it or without.
inline bool names_type(std::string_view key) { return key.size() >= kTypeCodeLength; }
// Whether anything is there behind the type code: else the key is a type's, a new object's, or nothing.
inline bool carries_object(std::string_view key) { return key.size() > kTypeCodeLength; }

// The ID in a key, or in an identity's key; none when there is nothing behind the type code, or anything but a number.
inline std::optional<std::int32_t> id_of_key(std::string_view identity) {
  const std::string_view key = identity.substr(0, identity.find('#'));
  if (!carries_object(key)) return std::nullopt;
  std::int32_t id = 0;
  const char* const end = key.data() + key.size();
  const auto [stop, fault] = std::from_chars(key.data() + kTypeCodeLength, end, id);
  if (fault != std::errc() || stop != end) return std::nullopt;
  return id;
}
// The same; none for a key of another type.
inline std::optional<std::int32_t> id_of_key(std::string_view identity, std::string_view type) {
  return identity.starts_with(type) ? id_of_key(identity) : std::nullopt;
}

}  // namespace quor
