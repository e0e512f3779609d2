// What a record or a row must hold before it is written: told to the user by field and value, where the database would
// only name its own constraint.
#pragma once

#include <cstdint>

#include "host/business/record_types.h"
#include "host/store/database.h"

namespace quor {

// The value as the store takes it inside the open transaction: a reference to nothing (0) is null. Throws StoreError
// when it is required and missing, names a record that is not there, or belongs to another row of `table` already.
Variant stored_value(Database& database, const char* table, const RecordField& field, std::int32_t id,
                     const Variant& value);

}  // namespace quor
