#include "platform/toolkit/list_view.h"

#include <algorithm>
#include <utility>

#include "platform/data/error.h"

namespace quor {

namespace {

std::size_t find_column(const std::vector<ListColumn>& columns, std::string ListColumn::*key, std::string_view value) {
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const ListColumn& c) { return c.*key == value; });
  if (found == columns.end() || value.empty()) {
    throw Error(ErrorKind::kNoSuchField, "Sąrašas neturi stulpelio „" + std::string(value) + "“.");
  }
  return static_cast<std::size_t>(found - columns.begin());
}

}  // namespace

ListView::ListView(ControlSet& owner, std::string name, std::vector<ListColumn> columns, CheckBoxes boxes)
    : Control(owner, std::move(name)), columns_(std::move(columns)), boxes_(boxes) {}

void ListView::accept(ControlVisitor& visitor) { visitor.visit(*this); }

std::size_t ListView::column(std::string_view key) const { return find_column(columns_, &ListColumn::key, key); }

std::size_t ListView::header(std::string_view header_key) const {
  return find_column(columns_, &ListColumn::header_key, header_key);
}

void ListView::set_caption(std::size_t column, std::string caption) {
  columns_[existing_column(column)].caption = std::move(caption);
  content_changed();
}

std::size_t ListView::existing_row(std::size_t row) const {
  if (row < rows_.size()) return row;
  throw Error(ErrorKind::kIndexOutOfRange, "Sąraše nėra eilutės Nr. " + std::to_string(row + 1) + ".");
}

std::size_t ListView::existing_column(std::size_t column) const {
  if (column < columns_.size()) return column;
  throw Error(ErrorKind::kIndexOutOfRange, "Sąraše nėra stulpelio Nr. " + std::to_string(column + 1) + ".");
}

const ListView::Cell& ListView::cell(std::size_t row, std::size_t column) const {
  return cells_[existing_row(row) * columns_.size() + existing_column(column)];
}

ListView::Cell& ListView::cell(std::size_t row, std::size_t column) {
  return const_cast<Cell&>(std::as_const(*this).cell(row, column));
}

const std::string& ListView::selected_tag() const {
  static const std::string none;
  return selected_ ? rows_[*selected_].tag : none;
}

std::optional<std::size_t> ListView::row_tagged(std::string_view tag) const {
  const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.tag == tag; });
  return found == rows_.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - rows_.begin()));
}

std::size_t ListView::add_row(std::string text, std::string tag) {
  const std::size_t row = rows_.size();
  rows_.push_back({.tag = std::move(tag), .checked = false});
  cells_.resize(cells_.size() + columns_.size());
  cells_[row * columns_.size()].text = std::move(text);
  content_changed();
  return row;
}

void ListView::set_text(std::size_t row, std::size_t column, std::string text) {
  cell(row, column).text = std::move(text);
  content_changed();
}

void ListView::set_colour(std::size_t row, std::size_t column, CellColour colour) {
  cell(row, column).colour = colour;
  content_changed();
}

void ListView::set_checked(std::size_t row, bool checked) {
  rows_[existing_row(row)].checked = checked;
  content_changed();
}

void ListView::remove_row(std::size_t row) {
  const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(existing_row(row) * columns_.size());
  cells_.erase(first, first + static_cast<std::ptrdiff_t>(columns_.size()));
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  if (selected_ == row) {
    selected_.reset();
  } else if (selected_ && *selected_ > row) {
    --*selected_;
  }
  content_changed();
}

void ListView::clear() {
  rows_.clear();
  cells_.clear();
  selected_.reset();
  content_changed();
}

void ListView::reserve(std::size_t rows) {
  rows_.reserve(rows);
  cells_.reserve(rows * columns_.size());
}

void ListView::select_row(std::optional<std::size_t> row) {
  if (row && *row >= rows_.size()) row.reset();
  put(selected_, row, ControlChange::kSelection);
}

void ListView::select(std::optional<std::size_t> row) {
  if (!can_act() || row == selected_) return;
  select_row(row);
  run(on_select);
}

void ListView::double_click(std::optional<std::size_t> row) {
  if (!can_act()) return;
  if (row) select(row);
  run(on_double_click);
}

void ListView::right_click(std::optional<std::size_t> row) {
  if (!can_act()) return;
  if (row) select(row);
  run(on_right_click);
}

void ListView::check(std::size_t row) {
  if (!can_act() || !has_check_boxes() || row >= rows_.size()) return;
  set_checked(row, !rows_[row].checked);
  if (on_check) on_check(row);
}

void ListView::content_changed() {
  if (bulk_changes_ > 0) {
    changed_in_bulk_ = true;
  } else {
    tell(ControlChange::kContent);
  }
}

void ListView::end_bulk_change() {
  if (--bulk_changes_ > 0 || !changed_in_bulk_) return;
  changed_in_bulk_ = false;
  tell(ControlChange::kContent);
}

}  // namespace quor
