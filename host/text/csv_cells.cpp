#include "host/text/csv_cells.h"

#include <algorithm>

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

}  // namespace quor
