// How the records of data objects lie in the store: object type -> table, field -> column.
#pragma once

#include <string_view>
#include <vector>

#include "platform/data/recordset.h"

namespace quor {

struct RecordField {
  FieldInfo info;
  const char* column;
};

struct RecordType {
  std::string_view object_type;
  const char* table;
  // Every table of records also has id, row_version, changed_by and changed_at.
  std::vector<RecordField> fields;
};

// Null when the host stores no records of that type.
const RecordType* record_type(std::string_view object_type);

}  // namespace quor
