// Small record sets for tests, and what stands in them as a text.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/recordset.h"
#include "tests/support/outcome.h"

namespace quor {

// Open, accepted, on the first row.
inline std::shared_ptr<Recordset> record_set(const std::vector<FieldInfo>& fields,
                                             const std::vector<std::vector<Variant>>& rows) {
  auto set = std::make_shared<Recordset>();
  for (const FieldInfo& field : fields) set->Fields().Append(field.name, field.type, field.size);
  set->Open();
  for (const auto& row : rows) {
    set->AddNew();
    for (std::size_t i = 0; i < row.size(); ++i) set->set_field(FieldHandle{i}, row[i]);
    set->Update();
  }
  set->AcceptBatch();
  if (!rows.empty()) set->MoveFirst();
  return set;
}

// Field "id" only.
inline std::shared_ptr<Recordset> ids(const std::vector<std::int32_t>& values) {
  std::vector<std::vector<Variant>> rows;
  for (const std::int32_t value : values) rows.push_back({value});
  return record_set({{"id", FieldType::kInt32}}, rows);
}

inline std::string value_text(const Variant& value) { return value.is_null() ? "Null" : value.to_text(); }

// The values of a field in the view, "1 2 Null"; the cursor is past the last row then.
inline std::string walked(Recordset& set, std::string_view field) {
  std::string values;
  if (set.RecordCount() > 0) set.MoveFirst();
  while (!set.Eof()) {
    values += (values.empty() ? "" : " ") + value_text(set.field(field));
    set.MoveNext();
  }
  return values;
}

// Where the cursor stands and the count: "row 2 of 3" (by "id"), "first 3" before the first, "last 3" after the last,
// "hole 2", "none 0", "closed".
inline std::string standing(const Recordset& set) {
  if (!set.is_open()) return "closed";
  const std::string count = std::to_string(set.RecordCount());
  if (set.Bof() && set.Eof()) return "none " + count;
  if (set.Bof()) return "first " + count;
  if (set.Eof()) return "last " + count;
  if (set.row_state() == RowState::kDeleted) return "hole " + count;
  return "row " + value_text(set.field("id")) + " of " + count;
}

}  // namespace quor
