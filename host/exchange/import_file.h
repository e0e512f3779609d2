// A file on its way in: its rows as values, and what is wrong with it as a file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/exchange/head_mapping.h"
#include "host/store/tables/stored_tables.h"
#include "platform/data/variant.h"

namespace quor {

struct ImportFault {
  std::string file;
  std::size_t line;
  std::string column;  // "„hours“ (valandos)"; "" when it is about the whole line
  std::string text;
};

// The fault, or what is odd, as a line for people: "laikas.csv:12: stulpelis „hours“ (valandos): trūksta reikšmės".
std::string line_of(const ImportFault& fault);

struct FileRow {
  std::size_t line;
  // By column of the table. Empty: the file has no such column, or the value at fault was told already.
  std::vector<Variant> cells;
  bool sound = true;    // no value of it was at fault
  std::int32_t id = 0;  // the hidden one, once it is known
};

struct TableFile {
  const StoredTable* table;
  std::string name;
  std::vector<bool> present;  // by column of the table
  std::vector<FileRow> rows;  // those with as many cells as the header has
  bool whole = false;         // the header fits and the file was read to its end

  // `column` by its name; "" when it is about the whole line.
  void add_fault(std::vector<ImportFault>& faults, const FileRow& row, std::string_view column,
                 const std::string& text) const {
    faults.push_back({name, row.line, column.empty() ? "" : table->columns[table->column(column)].words(), text});
  }
};

// Reads the file, whose heads mean what the mapping says, and appends its faults. Throws std::runtime_error when it
// cannot be read at all.
TableFile read_table_file(const StoredTable& table, const std::string& file, const HeadMapping& mapping,
                          std::vector<ImportFault>& faults);

}  // namespace quor
