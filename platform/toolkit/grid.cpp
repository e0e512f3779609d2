#include "platform/toolkit/grid.h"

#include <algorithm>
#include <utility>

#include "platform/data/error.h"

namespace quor {

namespace {

std::vector<std::string_view> split(std::string_view text, char by) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(by);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

// The lines of what a spreadsheet has copied, which ends each with a line end.
std::vector<std::vector<std::string_view>> copied_cells(std::string_view text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
  std::vector<std::vector<std::string_view>> lines;
  for (std::string_view line : split(text, '\n')) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(split(line, '\t'));
  }
  return lines;
}

}  // namespace

void Grid::accept(ControlVisitor& visitor) { visitor.visit(*this); }

const Grid::Cell& Grid::cell(std::size_t row, std::size_t column) const {
  if (row >= rows_.size() || column >= columns_.size()) {
    throw Error(ErrorKind::kIndexOutOfRange, "Lentelėje nėra eilutės Nr. " + std::to_string(row) +
                                                 " arba stulpelio Nr. " + std::to_string(column) + ".");
  }
  return cells_[row * columns_.size() + column];
}

Grid::Cell& Grid::cell(std::size_t row, std::size_t column) {
  return const_cast<Cell&>(std::as_const(*this).cell(row, column));
}

bool Grid::may_edit(std::size_t row, std::size_t column) const {
  return !read_only_ && row < rows_.size() && column < columns_.size() && !columns_[column].read_only &&
         !cell(row, column).locked;
}

// ---- the form's side

void Grid::set_columns(std::vector<GridColumn> columns) {
  const BulkChange bulk(*this);
  clear();
  columns_ = std::move(columns);
}

std::size_t Grid::add_row(std::string head, std::string tag) {
  rows_.push_back({std::move(head), std::move(tag)});
  cells_.resize(rows_.size() * columns_.size());
  forget_steps();
  content_changed();
  return rows_.size() - 1;
}

void Grid::clear() {
  rows_.clear();
  cells_.clear();
  range_ = {};
  forget_steps();
  content_changed();
}

void Grid::set_text(std::size_t row, std::size_t column, std::string text) {
  Cell& changed = cell(row, column);
  if (changed.text == text) return;
  changed.text = std::move(text);
  content_changed();
}

void Grid::set_colour(std::size_t row, std::size_t column, CellColour colour) {
  Cell& changed = cell(row, column);
  if (changed.colour == colour) return;
  changed.colour = colour;
  content_changed();
}

void Grid::lock_cell(std::size_t row, std::size_t column) {
  cell(row, column).locked = true;
  content_changed();
}

void Grid::forget_steps() {
  undo_.clear();
  redo_.clear();
}

void Grid::content_changed() {
  if (bulk_changes_ > 0) {
    changed_in_bulk_ = true;
  } else {
    tell(ControlChange::kContent);
  }
}

void Grid::end_bulk_change() {
  if (--bulk_changes_ > 0 || !std::exchange(changed_in_bulk_, false)) return;
  tell(ControlChange::kContent);
}

// ---- the user's side

void Grid::select(const GridRange& range) {
  if (rows_.empty() || columns_.empty() || range == range_) return;
  range_ = {std::min(range.first_row, rows_.size() - 1), std::min(range.first_column, columns_.size() - 1),
            std::min(range.last_row, rows_.size() - 1), std::min(range.last_column, columns_.size() - 1)};
  tell(ControlChange::kSelection);
}

std::string Grid::enter(std::size_t row, std::size_t column, std::string_view text) {
  return enter_all({{row, column, std::string(text)}});
}

// Every text is asked about before one is put in.
std::string Grid::enter_all(std::vector<Entry> entries) {
  if (!can_act()) return "";
  if (read_only_) return "Čia tik žiūrima.";
  std::erase_if(entries, [this](const Entry& entry) { return text(entry.row, entry.column) == entry.text; });
  for (Entry& entry : entries) {
    const std::string where = row_head(entry.row) + ", " + columns_[entry.column].caption + ": ";
    if (!may_edit(entry.row, entry.column)) return where + "čia nerašoma.";
    const std::string written = entry.text;
    const std::string fault = on_enter ? on_enter(entry.row, entry.column, entry.text) : "";
    if (!fault.empty()) return where + "„" + written + "“ – " + fault;
  }
  std::erase_if(entries, [this](const Entry& entry) { return text(entry.row, entry.column) == entry.text; });
  if (entries.empty()) return "";
  redo_.clear();
  undo_.push_back(exchange(std::move(entries)));
  return "";
}

std::string Grid::paste(std::string_view text) {
  const auto lines = copied_cells(text);
  const bool fills = lines.size() == 1 && lines.front().size() == 1;
  std::vector<Entry> entries;
  const std::size_t rows = fills ? range_.rows() : lines.size();
  for (std::size_t row = 0; row < rows; ++row) {
    const auto& line = fills ? lines.front() : lines[row];
    const std::size_t columns = fills ? range_.columns() : line.size();
    if (range_.first_row + row >= rows_.size() || range_.first_column + columns > columns_.size()) {
      return "Netelpa: įklijuojama eilučių – " + std::to_string(lines.size()) + ", stulpelių – " +
             std::to_string(columns) + ", o nuo čia yra eilučių – " +
             std::to_string(rows_.size() - std::min(range_.first_row, rows_.size())) + ", stulpelių – " +
             std::to_string(columns_.size() - std::min(range_.first_column, columns_.size())) + ".";
    }
    for (std::size_t column = 0; column < columns; ++column) {
      entries.push_back({range_.first_row + row, range_.first_column + column, std::string(line[fills ? 0 : column])});
    }
  }
  return enter_all(std::move(entries));
}

std::string Grid::fill_down() {
  std::vector<Entry> entries;
  for (std::size_t row = range_.first_row + 1; row <= range_.last_row && row < rows_.size(); ++row) {
    for (std::size_t column = range_.first_column; column <= range_.last_column; ++column) {
      if (may_edit(row, column)) entries.push_back({row, column, text(range_.first_row, column)});
    }
  }
  return enter_all(std::move(entries));
}

std::string Grid::erase() {
  std::vector<Entry> entries;
  for (std::size_t row = range_.first_row; row <= range_.last_row && row < rows_.size(); ++row) {
    for (std::size_t column = range_.first_column; column <= range_.last_column; ++column) {
      if (may_edit(row, column)) entries.push_back({row, column, ""});
    }
  }
  return enter_all(std::move(entries));
}

std::string Grid::copied() const {
  std::string copy;
  for (std::size_t row = range_.first_row; row <= range_.last_row && row < rows_.size(); ++row) {
    for (std::size_t column = range_.first_column; column <= range_.last_column; ++column) {
      copy += (column > range_.first_column ? "\t" : "") + text(row, column);
    }
    copy += '\n';
  }
  return copy;
}

// Puts the texts in and answers those that stood there.
Grid::Step Grid::exchange(Step step) {
  std::vector<std::size_t> rows;
  {
    const BulkChange bulk(*this);
    for (Entry& entry : step) {
      std::swap(cell(entry.row, entry.column).text, entry.text);
      rows.push_back(entry.row);
      content_changed();
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    if (on_change) on_change(rows);
  }
  return step;
}

void Grid::step_back(std::vector<Step>& from, std::vector<Step>& to) {
  if (!can_act() || read_only_ || from.empty()) return;
  Step step = std::move(from.back());
  from.pop_back();
  to.push_back(exchange(std::move(step)));
}

}  // namespace quor
