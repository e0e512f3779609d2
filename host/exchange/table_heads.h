// Which table and which columns the head of a file means. Tables and columns go by their name or by what people call
// them ("worked_time", "Darbo laikas"; "share", "etato dalis"); case, marks and signs do not matter.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/exchange/head_mapping.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

// Null when there is no such table.
const StoredTable* table_called(std::string_view words);
// The column's place; the number of columns when there is none of that name.
std::size_t column_called(const StoredTable& table, std::string_view words);

// Where the cells below a head go.
struct HeadColumn {
  static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);
  static constexpr std::size_t kLeftOut = static_cast<std::size_t>(-2);
  std::size_t column = kUnknown;  // of the table
};
HeadColumn column_of_head(const StoredTable& table, std::string_view head, const HeadMapping& mapping);

// The heads of a CSV file, its first record; none in an empty one. Throws std::runtime_error when it cannot be read.
std::vector<std::string> heads_of_file(const std::string& file);

// How well heads fit a table.
struct HeadFit {
  const StoredTable* table = nullptr;
  std::size_t known = 0;                     // columns that the heads name
  std::vector<std::string> unknown;          // heads that name none
  std::vector<const StoredColumn*> missing;  // required, and no head names them

  bool fits() const { return unknown.empty() && missing.empty(); }
};
HeadFit fit_of(const StoredTable& table, const std::vector<std::string>& heads, const HeadMapping& mapping);

// Of the tables that the heads fit: the one that the mapping names, else the only one, else the one that the file is
// named like. Throws std::runtime_error when they fit none, naming the nearest table with what it lacks and does not
// know, and when they fit several.
const StoredTable& table_of_file(const std::string& file, const HeadMapping& mapping = {});
// The table that the heads come nearest to; null when they name no column of any.
const StoredTable* nearest_table(const std::vector<std::string>& heads, const HeadMapping& mapping = {});

}  // namespace quor
