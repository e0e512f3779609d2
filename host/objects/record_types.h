// How the records of data objects lie in the store: object type -> table, field -> column.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/tables/stored_tables.h"
#include "platform/data/recordset.h"

namespace quor {

// A field of a data object and the column that keeps it. What the column is and may hold, its description says.
struct RecordField {
  FieldInfo info;
  const StoredColumn* stored;
  bool unique = false;  // no two rows of the table have the same

  std::string column() const { return std::string(stored->name); }
};

// A field by its name and its column's; of the column's own type unless another is given.
struct NamedField {
  const char* name;
  const char* column;
  std::optional<FieldType> type = std::nullopt;
};

// The fields of a table's records. Throws std::logic_error for a column that the table does not have.
std::vector<RecordField> record_fields(const char* table, std::initializer_list<NamedField> fields);

// The rows that belong to a record: a record set in its field `field`. Their table also has an id.
struct ChildRows {
  const char* field;
  const char* table;
  const char* owner_column;  // holds the record's ID
  const char* owner_guid;    // the field of a row that shows the record's GUID; null: records without one
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
  // Of the table's rows those alone, as SQL; null: all.
  const char* only = nullptr;

  // " AND …" of `only`, behind a WHERE.
  std::string and_only() const { return only == nullptr ? "" : std::string(" AND ") + only; }
};

// Whether its records have a field GUID.
bool has_guid(const RecordType& type);

// Null when the host stores no records of that type.
const RecordType* record_type(std::string_view object_type);

}  // namespace quor
