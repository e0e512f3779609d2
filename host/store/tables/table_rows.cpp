#include "host/store/tables/table_rows.h"

#include <algorithm>

namespace quor {

namespace {

// What the program keeps in tables for itself.
const std::vector<FieldInfo> kOwnColumns = {{"id", FieldType::kInt32},
                                            {"sort_key", FieldType::kText},
                                            {"row_version", FieldType::kInt32},
                                            {"changed_by", FieldType::kText},
                                            {"changed_at", FieldType::kText}};

FieldInfo column_of(std::string_view table, const std::string& name) {
  for (const auto& fields : {stored_fields(stored_table(table)), kOwnColumns}) {
    const auto found = std::find_if(fields.begin(), fields.end(), [&](const auto& each) { return each.name == name; });
    if (found != fields.end()) return *found;
  }
  throw std::logic_error("no such column: " + std::string(table) + "." + name);
}

}  // namespace

TableRows::TableRows(std::string_view table) : table_(table) {
  const StoredTable& described = stored_table(table);
  for (const FieldInfo& field : stored_fields(described)) columns_.emplace_back(field);
  if (described.named) columns_.emplace_back(column_of(table, "sort_key"));
  if (described.versioned) columns_.emplace_back(column_of(table, "row_version"));
}

TableRows::TableRows(std::string_view table, const std::vector<std::string>& columns) : table_(table) {
  for (const std::string& name : columns) columns_.emplace_back(column_of(table, name));
}

void TableRows::require_cells(std::size_t count) const {
  if (count == columns_.size()) return;
  throw std::logic_error("a row of " + table_ + " has " + std::to_string(columns_.size()) + " cells, not " +
                         std::to_string(count));
}

void TableRows::insert_into(Database& database) {
  if (size() == 0) return;
  database.insert(table_, columns_);
  for (ColumnData& column : columns_) column = ColumnData(column.info);
}

std::int32_t TableRows::insert_with_ids(Database& database) {
  if (size() == 0) return 0;
  const std::int32_t first = database.reserve_ids(table_, size());
  for (std::int32_t& id : std::get<std::vector<std::int32_t>>(columns_.front().values)) id += first;
  insert_into(database);
  return first;
}

}  // namespace quor
