#include "host/store/tables/stored_tables.h"

#include <algorithm>
#include <stdexcept>

namespace quor {

namespace {

FieldType field_type(ColumnKind type) {
  switch (type) {
    case ColumnKind::kId:
    case ColumnKind::kWhole:
    case ColumnKind::kFlag:
    case ColumnKind::kTimeCode:
      return FieldType::kInt32;
    case ColumnKind::kNumber:
      return FieldType::kDouble;
    case ColumnKind::kDate:
    case ColumnKind::kMonth:
    case ColumnKind::kDayOrMonth:
      return FieldType::kDate;
    case ColumnKind::kText:
      break;
  }
  return FieldType::kText;
}

}  // namespace

std::size_t StoredTable::column(std::string_view column_name) const {
  const auto at =
      std::find_if(columns.begin(), columns.end(), [&](const auto& each) { return each.name == column_name; });
  return static_cast<std::size_t>(at - columns.begin());
}

std::string StoredColumn::words() const {
  const bool says_more = name != "id" && name != "guid";
  return "„" + std::string(name) + "“" + (says_more ? " (" + std::string(caption) + ")" : "");
}

std::string StoredTable::words() const { return "„" + std::string(caption) + "“ (" + std::string(name) + ")"; }

const StoredTable* find_stored_table(std::string_view name) {
  for (const StoredTable& table : stored_tables()) {
    if (table.name == name) return &table;
  }
  return nullptr;
}

const StoredTable& stored_table(std::string_view name) {
  if (const StoredTable* const table = find_stored_table(name)) return *table;
  throw std::logic_error("no such table is described: " + std::string(name));
}

const StoredColumn& stored_column(std::string_view table, std::string_view column) {
  const StoredTable& described = stored_table(table);
  const std::size_t at = described.column(column);
  if (at < described.columns.size()) return described.columns[at];
  throw std::logic_error("no such column is described: " + std::string(table) + "." + std::string(column));
}

std::vector<FieldInfo> stored_fields(const StoredTable& table) {
  std::vector<FieldInfo> fields;
  for (const StoredColumn& column : table.columns) {
    if (column.kind == ColumnKind::kDayOrMonth) {
      fields.push_back({"month", FieldType::kDate});
      fields.push_back({"day", FieldType::kDate});
    } else {
      const bool code = column.kind == ColumnKind::kTimeCode;
      fields.push_back({code ? "time_code_id" : std::string(column.name), field_type(column.kind)});
    }
  }
  return fields;
}

FieldInfo stored_field(std::string_view table, std::string_view column) {
  static const std::vector<FieldInfo> own = {{"id", FieldType::kInt32},
                                             {"sort_key", FieldType::kText},
                                             {"row_version", FieldType::kInt32},
                                             {"changed_by", FieldType::kText},
                                             {"changed_at", FieldType::kText}};
  for (const auto& fields : {stored_fields(stored_table(table)), own}) {
    const auto found =
        std::find_if(fields.begin(), fields.end(), [&](const FieldInfo& each) { return each.name == column; });
    if (found != fields.end()) return *found;
  }
  throw std::logic_error("no such column: " + std::string(table) + "." + std::string(column));
}

}  // namespace quor
