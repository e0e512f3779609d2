// How the records of data objects lie in the store: object type -> table, field -> column.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/data/recordset.h"

namespace quor {

struct RecordField {
  FieldInfo info;
  const char* column;
};

// The rows that belong to a record: a record set in its field `field`. Their table also has an id.
struct ChildRows {
  const char* field;
  const char* table;
  const char* owner_column;  // holds the record's ID
  const char* owner_guid;    // the field of a row that shows the record's GUID
  const char* order;         // of the rows, as SQL
  std::vector<RecordField> fields;
};

struct RecordType {
  std::string_view object_type;
  const char* table;
  // Every table of records also has id, row_version, changed_by and changed_at.
  std::vector<RecordField> fields;
  const char* name_field = nullptr;  // shown as the object's name
  std::optional<ChildRows> rows = std::nullopt;
};

// Null when the host stores no records of that type.
const RecordType* record_type(std::string_view object_type);

}  // namespace quor
