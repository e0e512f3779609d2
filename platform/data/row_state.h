// What has become of a row since the batch was last accepted.
#pragma once

#include <cstdint>

namespace quor {

enum class RowState : std::uint8_t { kUnchanged, kAdded, kModified, kDeleted };

}  // namespace quor
