#include "host/business/object_codes.h"

#include <charconv>

#include "frame/contract/quor_object_uio.h"

namespace quor {

std::string object_key(std::string_view type, std::int32_t id) { return std::string(type) + std::to_string(id); }

std::optional<std::int32_t> id_of_key(std::string_view key) {
  if (key.size() <= kTypeCodeLength) return std::nullopt;
  std::int32_t id = 0;
  const char* const end = key.data() + key.size();
  const auto [stop, error] = std::from_chars(key.data() + kTypeCodeLength, end, id);
  if (error != std::errc() || stop != end) return std::nullopt;
  return id;
}

}  // namespace quor
