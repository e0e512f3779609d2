// What a record or a row must hold before it is written: told to the user by field and value, where the database would
// only name its own constraint.
#pragma once

#include <cstdint>
#include <span>

#include "host/objects/record_types.h"
#include "host/store/database.h"

namespace quor {

// The value as the store takes it inside the open transaction: a reference to nothing (0) is null. Throws StoreError
// when it is required and missing, names a record that is not there, or belongs to another row of `table` already.
Variant stored_value(Database& database, const char* table, const RecordField& field, std::int32_t id,
                     const Variant& value);

// Throws StoreError, naming field and range, when a value that the row brings or changes is none that the company may
// hold, or no longer goes together with the others of its row. What the row leaves as it was is not asked about: an old
// value from elsewhere does not keep its record from being saved. `handles` are the fields' places in the row.
void refuse_unfit_values(const char* table, std::span<const RecordField> fields, std::span<const FieldHandle> handles,
                         const RowChange& row);

}  // namespace quor
