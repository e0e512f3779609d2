#include "host/exchange/imported_row.h"

namespace quor {

namespace {

std::string shown(const std::string& value) { return value.empty() ? "–" : value; }

}  // namespace

std::string line_of(const ImportedRow& row) {
  std::string text = std::to_string(row.line) + ": " + (row.added ? "nauja" : "keičiama") + " (" + row.key + ")";
  for (const ImportedRow::Cell& cell : row.cells) {
    text += (&cell == &row.cells.front() ? ": " : "; ") + cell.column + " ";
    text += row.added ? cell.to : shown(cell.from) + " → " + shown(cell.to);
  }
  return text;
}

}  // namespace quor
