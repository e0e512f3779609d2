#include "host/store/object_codes.h"

namespace quor {

std::string object_key(std::string_view type, std::int32_t id) { return std::string(type) + std::to_string(id); }

}  // namespace quor
