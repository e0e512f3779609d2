// Rows of one table on their way into the database, kept as columns.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "host/store/database.h"
#include "platform/data/column.h"

namespace quor {

class TableRows {
 public:
  TableRows(std::string_view table, std::initializer_list<FieldInfo> columns) : table_(table) {
    for (const FieldInfo& column : columns) columns_.emplace_back(column);
  }

  std::size_t size() const { return columns_.front().size(); }

  // One cell for each column, in order: std::int32_t, double, Date, text, kNull or an optional of these.
  template <typename... Cells>
  void add(const Cells&... cells) {
    std::size_t column = 0;
    (push(columns_.at(column++), cells), ...);
  }

  // Inserts the rows and forgets them.
  void insert_into(Database& database) {
    database.insert(table_, columns_);
    for (ColumnData& column : columns_) column = ColumnData(column.info);
  }

  // The same with IDs: the first column is the table's id, which rows carry counted from 0. Answers the first ID.
  std::int32_t insert_with_ids(Database& database) {
    if (size() == 0) return 0;
    const std::int32_t first = database.reserve_ids(table_, static_cast<std::int32_t>(size()));
    for (std::int32_t& id : std::get<std::vector<std::int32_t>>(columns_.front().values)) id += first;
    insert_into(database);
    return first;
  }

 private:
  static void push(ColumnData& column, std::int32_t value) {
    std::get<std::vector<std::int32_t>>(column.values).push_back(value);
  }
  static void push(ColumnData& column, double value) { std::get<std::vector<double>>(column.values).push_back(value); }
  static void push(ColumnData& column, Date value) { push(column, value.serial()); }
  static void push(ColumnData& column, std::string_view text) { std::get<TextColumn>(column.values).push_back(text); }
  static void push(ColumnData& column, Null) {
    column.nulls.set(column.size(), true);
    switch (column.info.type) {
      case FieldType::kText:
        push(column, std::string_view());
        break;
      case FieldType::kInt32:
        push(column, 0);
        break;
      default:
        push(column, 0.0);
        break;
    }
  }
  template <typename T>
  static void push(ColumnData& column, const std::optional<T>& value) {
    if (value)
      push(column, *value);
    else
      push(column, kNull);
  }

  std::string_view table_;
  std::vector<ColumnData> columns_;
};

}  // namespace quor
