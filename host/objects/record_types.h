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
  bool required = false;             // never null
  bool unique = false;               // no two rows of the table have the same
  const char* references = nullptr;  // the table whose ID it holds; null, or 0, for none
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
  const char* plural;  // what the records are called, in the genitive: "Neturite teisės keisti …"
  // Every table of records also has id, row_version, changed_by and changed_at.
  std::vector<RecordField> fields;
  const char* name_field = nullptr;  // shown as the object's name
  std::optional<ChildRows> rows = std::nullopt;
  bool read_only = false;  // kept by another part of the program: only read as objects, never saved or deleted
};

// Whether its records have a field GUID.
bool has_guid(const RecordType& type);

// Null when the host stores no records of that type.
const RecordType* record_type(std::string_view object_type);

}  // namespace quor
