// The tables of a company that travel as CSV, each declared once: its columns, keys and references.
//
// A file's columns are named as the database's; messages say the name, for who has the file before him, and beside it
// what people call it. What a column may hold is part of its declaration: see stored_columns.h. What the program keeps
// for itself (sort keys, row versions, who changed a record) does not travel. The order of the tables is that of their
// references: a table stands behind every table that it refers to.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/stored_columns.h"

namespace quor {

enum class CellType {
  kId,          // 1 … 2000000000
  kWhole,       // any 32-bit whole number
  kFlag,        // 0 or 1
  kNumber,      // a finite double
  kDate,        // "2008-01-31"
  kMonth,       // "2008-01", stored as its first day
  kDayOrMonth,  // either; stored in two columns: month, and day (none for a whole month)
  kTimeCode,    // the code or the code_id of an indication "WorkTime"; stored as time_code_id
  kText,
};

struct ExchangedColumn {
  std::string_view name;
  CellType type;
  bool required = false;
  std::string_view references = {};      // the table whose id the cell holds
  const StoredColumn* stored = nullptr;  // never null in a table of exchanged_tables()

  std::string words() const;  // "„hours“ (valandos)"; "„id“" alone
};

struct ExchangedTable {
  using Names = std::vector<std::string_view>;

  std::string_view name;
  std::vector<ExchangedColumn> columns;
  Names key;                        // tells one row from another
  std::vector<Names> uniques = {};  // no two rows have the same values here either
  bool named = false;               // has a sort_key of its name
  bool versioned = false;           // has row_version, changed_by, changed_at
  bool hidden_id = false;           // has an id that does not travel
  std::string_view closed_by = {};  // the column (a month or a document) by which a closed month holds the row
  std::string_view owner = {};      // the column with the versioned record that the row is a part of

  std::size_t column(std::string_view column_name) const;  // its place; the column must be there
  std::string words() const;                               // "„Darbo laikas“ (worked_time)"
};

std::span<const ExchangedTable> exchanged_tables();
// Null when there is no such table.
const ExchangedTable* find_exchanged_table(std::string_view name);

}  // namespace quor
