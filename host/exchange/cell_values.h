// Values of cells as text and back. A value is Null, or by type: an Int32 (ids, whole numbers), a Double, a Date, a
// text. A day or month is a Date, or the text "2008-01"; a month is the Date of its first day. A time code is the text
// that stands in the file until TimeCodes has made it the Int32 of its code_id.
#pragma once

#include <string>
#include <string_view>

#include "host/store/tables/stored_tables.h"
#include "host/text/csv_cells.h"
#include "platform/data/variant.h"

namespace quor {

struct ParsedCell {
  Variant value;      // Empty when there is a fault
  std::string fault;  // "„abc“ nėra skaičius"
};

// The value of a cell that is not null; a text without its guard. Numbers have a decimal point or comma, dates the
// forms of parse_date.
ParsedCell parse_cell(ColumnKind type, std::string_view text);

// How a value that is not null stands in a file; a text is not guarded yet.
std::string cell_text(ColumnKind type, const Variant& value, const CsvStyle& style = kProgramCsv);

// The first day of the month that a month, a day or a day's month is of.
Date month_of_cell(const Variant& value);

// The key columns' values as one text.
std::string key_text(const StoredTable& table, const StoredTable::Names& key, const std::vector<Variant>& cells);
// The same for people: "ID 5", "mėnuo 2008-01, darbuotojas 7".
std::string key_words(const StoredTable& table, const StoredTable::Names& key, const std::vector<Variant>& cells);

}  // namespace quor
