// One computed row as a record set of its own: what the engine's methods answer with.
#pragma once

#include <initializer_list>
#include <memory>

#include "platform/data/recordset.h"

namespace velmora {

struct ComputedField {
  quor::FieldInfo info;
  quor::Variant value;
};

// An open record set of one row, with the fields in the order given. The row stands as after AddNew: current, counted.
std::shared_ptr<quor::Recordset> computed_row(std::initializer_list<ComputedField> fields);

// The longest text of the computed fields that carry a name or a comment.
inline constexpr std::size_t kComputedTextSize = 500;

}  // namespace velmora
