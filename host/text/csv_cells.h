// What tables and reports in CSV share: the two styles, and the guard of texts that a spreadsheet would take for a
// formula.
//
//   text "=1+1"     '=1+1      a leading apostrophe; `unguarded` takes it off again
//   text "'=1+1"    ''=1+1     one more, so that every text comes back
//   text "'90"      '90        as it is: no formula stands behind the apostrophe
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quor {

struct CsvStyle {
  char separator = ',';
  bool decimal_comma = false;
  bool byte_order_mark = false;  // by it a spreadsheet knows UTF-8
};
inline constexpr CsvStyle kProgramCsv{};
inline constexpr CsvStyle kSpreadsheetCsv{';', true,
                                          true};  // as spreadsheets expect it where the decimal mark is a comma

// "csv" or "csv-semicolon"; none for another format.
std::optional<CsvStyle> csv_style_named(std::string_view format);

// A text that begins with = + - @ or a control character, behind any apostrophes, with one apostrophe more: no
// spreadsheet evaluates it. Any other text as it is.
std::string guarded(std::string_view text);
// The text that `guarded` was given.
std::string_view unguarded(std::string_view cell);
// True for digits with a minus and one decimal mark at most: such a cell is a number to a spreadsheet, and harmless.
bool reads_as_number(std::string_view cell);

}  // namespace quor
