#include "host/store/tables/table_rows.h"

namespace quor {

TableRows::TableRows(std::string_view table) : table_(table) {
  const StoredTable& described = stored_table(table);
  for (const FieldInfo& field : stored_fields(described)) columns_.emplace_back(field);
  if (described.named) columns_.emplace_back(stored_field(table, "sort_key"));
  if (described.versioned) columns_.emplace_back(stored_field(table, "row_version"));
}

TableRows::TableRows(std::string_view table, const std::vector<std::string>& columns) : table_(table) {
  for (const std::string& name : columns) columns_.emplace_back(stored_field(table, name));
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
