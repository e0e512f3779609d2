// The widget of a grid: a table that is typed in, by the keys of a sheet. What the user does goes to the grid; what it
// refuses is told once the act has ended.
//
//   typing, F2     into the cell; Enter and Tab put in and go down or on, Esc leaves as it was
//   Ctrl+C X V     copies, cuts and pastes texts between tabs, as spreadsheets do
//   Ctrl+D         fills the first row of what is chosen down; Del empties it
//   Ctrl+Z, Ctrl+Y takes the last act back, and does it again
#pragma once

#include <QTableView>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/grid.h"

namespace quor {

class GridModel;

class GridWidget : public QTableView {
 public:
  GridWidget(Grid& grid, FormActs& acts, QWidget* parent);
  void show_change(ControlChange change);
  // What is being typed is put in; false when the grid has refused it.
  bool finish_typing();

  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  bool obeys(const QKeyEvent& event);
  void enter(std::size_t row, std::size_t column, const std::string& text);
  // Runs what answers "" or why it was not done.
  void run(const std::function<std::string()>& what);
  void copy();
  void cut();
  void paste();
  void step(int rows, int columns);
  void show_columns();
  void show_selection();

  Grid& grid_;
  FormActs& acts_;
  GridModel* model_;
  bool showing_ = false;
  bool refused_ = false;
};

}  // namespace quor
