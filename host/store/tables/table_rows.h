// Rows of one table on their way into the database, kept as columns and inserted at once.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/database.h"
#include "host/store/tables/stored_tables.h"
#include "platform/data/column.h"

namespace quor {

class TableRows {
 public:
  // All columns of the table's description, behind them sort_key and row_version where the table has them.
  explicit TableRows(std::string_view table);
  // These columns, in this order. Throws std::logic_error for one that the table does not have.
  TableRows(std::string_view table, const std::vector<std::string>& columns);

  std::int32_t size() const { return static_cast<std::int32_t>(columns_.front().size()); }
  const std::vector<ColumnData>& columns() const { return columns_; }

  // One cell for each column, in order: std::int32_t, double, Date, text, kNull, an optional of these, or a Variant.
  // Throws std::logic_error for a row with other than one cell a column.
  template <typename... Cells>
  void append_row(const Cells&... cells) {
    require_cells(sizeof...(cells));
    std::size_t column = 0;
    (push(columns_[column++], cells), ...);
  }
  void append_row(const std::vector<Variant>& cells) {
    require_cells(cells.size());
    for (std::size_t column = 0; column < cells.size(); ++column) push(columns_[column], cells[column]);
  }

  // Inserts the rows, if there are any, and forgets them.
  void insert_into(Database& database);
  // The same with IDs: the first column is the table's id, which rows carry counted from 0. Answers the first ID.
  std::int32_t insert_with_ids(Database& database);

 private:
  void require_cells(std::size_t count) const;

  static void push(ColumnData& column, const Variant& value) { column.append(value); }
  static void push(ColumnData& column, std::int32_t value) {
    std::get<std::vector<std::int32_t>>(column.values).push_back(value);
  }
  static void push(ColumnData& column, double value) { std::get<std::vector<double>>(column.values).push_back(value); }
  static void push(ColumnData& column, Date value) { push(column, value.serial()); }
  static void push(ColumnData& column, std::string_view text) { std::get<TextColumn>(column.values).push_back(text); }
  static void push(ColumnData& column, const std::string& text) { push(column, std::string_view(text)); }
  static void push(ColumnData& column, const char* text) { push(column, std::string_view(text)); }
  static void push(ColumnData& column, Null) { column.append_null(); }
  template <typename T>
  static void push(ColumnData& column, const std::optional<T>& value) {
    if (value)
      push(column, *value);
    else
      push(column, kNull);
  }

  std::string table_;
  std::vector<ColumnData> columns_;
};

}  // namespace quor
