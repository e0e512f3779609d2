#include "host/text/csv_cells.h"

#include <algorithm>
#include <charconv>

namespace quor {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Whether a spreadsheet would evaluate it once the apostrophes before it are gone.
bool is_formula(std::string_view text) {
  const std::size_t begin = text.find_first_not_of('\'');
  if (begin == std::string_view::npos) return false;
  return static_cast<unsigned char>(text[begin]) < ' ' || std::string_view("=+-@\x7f").find(text[begin]) != text.npos;
}

}  // namespace

std::optional<CsvStyle> csv_style_named(std::string_view format) {
  if (format == "csv") return kProgramCsv;
  if (format == "csv-semicolon") return kSpreadsheetCsv;
  return std::nullopt;
}

std::string_view csv_start(const CsvStyle& style) { return style.byte_order_mark ? "\xEF\xBB\xBF" : ""; }

std::string plain_number(double value, const CsvStyle& style) {
  char text[400];  // the longest: the smallest number above zero, with 323 zeros behind its point
  std::string number(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr);
  if (style.decimal_comma) std::replace(number.begin(), number.end(), '.', ',');
  return number;
}

std::string guarded(std::string_view text) { return (is_formula(text) ? "'" : "") + std::string(text); }

std::string_view unguarded(std::string_view cell) {
  return cell.starts_with('\'') && is_formula(cell) ? cell.substr(1) : cell;
}

bool reads_as_number(std::string_view cell) {
  if (cell.starts_with('-')) cell.remove_prefix(1);
  const std::size_t mark = std::min(cell.find_first_of(".,"), cell.size());
  const std::string_view whole = cell.substr(0, mark), rest = cell.substr(std::min(mark + 1, cell.size()));
  return !whole.empty() && std::all_of(whole.begin(), whole.end(), is_digit) &&
         std::all_of(rest.begin(), rest.end(), is_digit) && (mark == cell.size() || !rest.empty());
}

void append_csv_cell(std::string& csv, std::string_view cell, const CsvStyle& style) {
  // A semicolon always: who reads a file may tell its separator by one.
  const char special[] = {style.separator, ';', '"', '\r', '\n'};
  if (cell.find_first_of(std::string_view(special, sizeof special)) == std::string_view::npos) {
    csv += cell;
    return;
  }
  csv += '"';
  for (const char c : cell) csv.append(c == '"' ? 2 : 1, c);
  csv += '"';
}

}  // namespace quor
