// A grid of cells that are typed in place, as on a sheet: rows under heads, a rectangle of cells chosen, what is copied
// from elsewhere pasted, one row filled down. What the user does is one step each, taken back and done again whole.
//
// The cells' texts belong to the form: it puts them in, and is asked about each text that the user enters. An act that
// puts in many texts at once is refused whole for the first text that is refused, with its row, column and text.
//
// Made for 10,000 rows of a dozen columns: all cells lie in one vector, a bulk change tells the observer once, a step
// keeps only the cells that it has changed.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/control.h"
#include "platform/toolkit/list_view.h"

namespace quor {

struct GridColumn {
  std::string caption;
  int width = 60;  // in pixels of a screen with 96 dots an inch
  CellAlignment alignment = CellAlignment::kRight;
  bool read_only = false;
};

// The cells from the first row and column to the last, both included.
struct GridRange {
  std::size_t first_row = 0, first_column = 0;
  std::size_t last_row = 0, last_column = 0;

  std::size_t rows() const { return last_row - first_row + 1; }
  std::size_t columns() const { return last_column - first_column + 1; }
  bool operator==(const GridRange&) const = default;
};

class Grid : public Control {
 public:
  Grid(ControlSet& owner, std::string name) : Control(owner, std::move(name)) {}

  const std::vector<GridColumn>& columns() const { return columns_; }
  std::size_t row_count() const { return rows_.size(); }
  const std::string& row_head(std::size_t row) const { return rows_.at(row).head; }
  const std::string& row_tag(std::size_t row) const { return rows_.at(row).tag; }
  const std::string& text(std::size_t row, std::size_t column) const { return cell(row, column).text; }
  CellColour colour(std::size_t row, std::size_t column) const { return cell(row, column).colour; }
  // Whether the user may type there.
  bool may_edit(std::size_t row, std::size_t column) const;
  bool read_only() const { return read_only_; }
  // What is chosen; the first cell of an empty grid.
  const GridRange& range() const { return range_; }
  bool can_undo() const { return !undo_.empty(); }
  bool can_redo() const { return !redo_.empty(); }

  // The form's side. Other columns or rows end what can be undone.
  void set_columns(std::vector<GridColumn> columns);  // the grid is empty then
  std::size_t add_row(std::string head, std::string tag = {});
  void clear();
  void set_text(std::size_t row, std::size_t column, std::string text);
  void set_colour(std::size_t row, std::size_t column, CellColour colour);
  void lock_cell(std::size_t row, std::size_t column);  // it is shown and not typed
  void set_read_only(bool read_only) { put(read_only_, read_only, ControlChange::kState); }
  // What was done so far can no longer be undone: it is stored.
  void forget_steps();

  // While it lives the observer is not told; at its end it is told once, if something changed.
  class BulkChange {
   public:
    explicit BulkChange(Grid& grid) : grid_(grid) { ++grid_.bulk_changes_; }
    BulkChange(const BulkChange&) = delete;
    BulkChange& operator=(const BulkChange&) = delete;
    ~BulkChange() { grid_.end_bulk_change(); }

   private:
    Grid& grid_;
  };

  void accept(ControlVisitor& visitor) override;

  // The user's side. Each answers "" or why nothing was done.
  void select(const GridRange& range);
  std::string enter(std::size_t row, std::size_t column, std::string_view text);
  // Lines of texts between tabs, from the first cell of the range on; one text alone fills the whole range. What does
  // not fit into the grid is refused.
  std::string paste(std::string_view text);
  // The first row of the range into the others.
  std::string fill_down();
  std::string erase();
  // The texts of the range between tabs and line ends.
  std::string copied() const;
  void undo() { step_back(undo_, redo_); }
  void redo() { step_back(redo_, undo_); }
  // Puts a text into each of the cells as one step of the user, asked about as typed ones.
  struct Entry {
    std::size_t row;
    std::size_t column;
    std::string text;
  };
  std::string enter_all(std::vector<Entry> entries);

  // Why the text may not stand there, or "" and the text as it is to stand; every text may stand without it.
  std::function<std::string(std::size_t row, std::size_t column, std::string& text)> on_enter;
  // After each act that has changed texts, with the rows changed, each once and in order.
  std::function<void(const std::vector<std::size_t>& rows)> on_change;

 private:
  struct Cell {
    std::string text;
    CellColour colour = CellColour::kNormal;
    bool locked = false;
  };
  struct Row {
    std::string head;
    std::string tag;
  };
  using Step = std::vector<Entry>;  // the cells with the texts that they had

  const Cell& cell(std::size_t row, std::size_t column) const;
  Cell& cell(std::size_t row, std::size_t column);
  Step exchange(Step step);
  void step_back(std::vector<Step>& from, std::vector<Step>& to);
  void content_changed();
  void end_bulk_change();

  std::vector<GridColumn> columns_;
  std::vector<Row> rows_;
  std::vector<Cell> cells_;  // row after row
  GridRange range_;
  bool read_only_ = false;
  std::vector<Step> undo_, redo_;  // the latest last
  int bulk_changes_ = 0;
  bool changed_in_bulk_ = false;
};

}  // namespace quor
