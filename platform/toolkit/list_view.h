// A list of rows under columns. A row has a cell for each column, each with its text and colour; a tag, which names the
// object that the row stands for; and a check mark, where the list has check boxes. The first cell is the row's own
// text. Cells are addressed by row and column number; resolve a column's key once, outside the loop. A row or
// column that is not there is IndexOutOfRange everywhere, except in what the user does: that is then no act.
//
// Made for 100,000 rows of 13 cells: all cells lie in one vector, and a bulk change tells the observer once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/toolkit/control.h"

namespace quor {

enum class CellAlignment { kLeft, kRight };

struct ListColumn {
  std::string key;  // of the column's cells; the first column needs none
  std::string caption;
  int width = 100;  // in pixels of a screen with 96 dots an inch
  CellAlignment alignment = CellAlignment::kLeft;
  std::string header_key = {};  // by which the form changes the caption; none for a head that stays as it is
};

enum class CellColour : std::uint8_t { kNormal, kRed, kGreyText, kGreen };

class ListView : public Control {
 public:
  enum class CheckBoxes { kNone, kOnRows };

  ListView(ControlSet& owner, std::string name, std::vector<ListColumn> columns, CheckBoxes boxes = CheckBoxes::kNone);

  const std::vector<ListColumn>& columns() const { return columns_; }
  // The number of the column whose cells have the key, or whose head has it; throws NoSuchField when there is none.
  std::size_t column(std::string_view key) const;
  std::size_t header(std::string_view header_key) const;
  void set_caption(std::size_t column, std::string caption);
  bool has_check_boxes() const { return boxes_ == CheckBoxes::kOnRows; }

  std::size_t row_count() const { return rows_.size(); }
  const std::string& text(std::size_t row, std::size_t column = 0) const { return cell(row, column).text; }
  CellColour colour(std::size_t row, std::size_t column = 0) const { return cell(row, column).colour; }
  const std::string& tag(std::size_t row) const { return rows_[existing_row(row)].tag; }
  bool checked(std::size_t row) const { return rows_[existing_row(row)].checked; }
  std::optional<std::size_t> selected() const { return selected_; }
  // The tag of the selected row; "" when none is selected.
  const std::string& selected_tag() const;
  // The first row with the tag; none when no row has it.
  std::optional<std::size_t> row_tagged(std::string_view tag) const;

  // Adds a row at the end, its other cells empty, and answers its number.
  std::size_t add_row(std::string text, std::string tag = {});
  void set_text(std::size_t row, std::size_t column, std::string text);
  void set_colour(std::size_t row, std::size_t column, CellColour colour);
  void set_checked(std::size_t row, bool checked);
  void remove_row(std::size_t row);
  void clear();
  void reserve(std::size_t rows);
  // None for a row that is not there, as after a list has become shorter.
  void select_row(std::optional<std::size_t> row);

  // While it lives the observer is not told; at its end it is told once, if something changed.
  class BulkChange {
   public:
    explicit BulkChange(ListView& list) : list_(list) { ++list_.bulk_changes_; }
    BulkChange(const BulkChange&) = delete;
    BulkChange& operator=(const BulkChange&) = delete;
    ~BulkChange() { list_.end_bulk_change(); }

   private:
    ListView& list_;
  };

  void accept(ControlVisitor& visitor) override;

  // The user selects a row (or none); on_select hears of it.
  void select(std::optional<std::size_t> row);
  // A double click, or Enter, on the row or beside all rows; the row is selected first.
  void double_click(std::optional<std::size_t> row);
  // The right button released over the row or beside all rows; the row is selected first.
  void right_click(std::optional<std::size_t> row = {});
  // The row's check box changes over.
  void check(std::size_t row);

  std::function<void()> on_select;
  std::function<void()> on_double_click;
  std::function<void()> on_right_click;
  std::function<void(std::size_t)> on_check;

 private:
  struct Cell {
    std::string text;
    CellColour colour = CellColour::kNormal;
  };
  struct Row {
    std::string tag;
    bool checked = false;
  };

  // The number itself; throws IndexOutOfRange when there is no such row or column.
  std::size_t existing_row(std::size_t row) const;
  std::size_t existing_column(std::size_t column) const;
  const Cell& cell(std::size_t row, std::size_t column) const;
  Cell& cell(std::size_t row, std::size_t column);
  void content_changed();
  void end_bulk_change();

  std::vector<ListColumn> columns_;
  const CheckBoxes boxes_;
  std::vector<Row> rows_;
  std::vector<Cell> cells_;  // row after row
  std::optional<std::size_t> selected_;
  int bulk_changes_ = 0;
  bool changed_in_bulk_ = false;
};

}  // namespace quor
