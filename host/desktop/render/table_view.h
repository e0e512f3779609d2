// Rows under columns as every list shows them, whoever fills it: several rows or, by dragging, a block of cells can be
// selected; what is selected is copied with its heads and summed up in the status line of the window; the columns that
// name a row stay when one scrolls sideways; letters that are typed lead to the row that begins with them.
#pragma once

#include <QElapsedTimer>
#include <QTreeView>
#include <functional>
#include <vector>

#include "host/desktop/render/folded_text.h"
#include "host/desktop/render/shown_table.h"

namespace quor {

class FrozenColumns;

// An entry of a list's own, beside what can be done with its objects.
struct ListEntry {
  QString caption;  // with its key behind a tab
  std::function<void()> run;
  bool checkable = false;
  bool checked = false;
};

class TableView : public QTreeView {
 public:
  explicit TableView(QWidget* parent);

  // Keeps what is shown as a file; without it that is not offered.
  std::function<void(TableFormat kind)> on_save;

  // Goes to the nearest row with the text; none when no row has it: the user then stays where he is.
  std::optional<FoundCell> find(const QString& text, SearchFrom from);
  void copy_selected() const;
  std::vector<ListEntry> copy_and_save_entries();

  void keyboardSearch(const QString& typed) override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void updateGeometries() override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

 private:
  // How many columns stay: up to the first one of texts, mostly the number and the name.
  int columns_kept() const;
  void show_kept_columns();
  void show_sums();
  void tell(const QString& text);

  FrozenColumns* frozen_ = nullptr;  // once one has scrolled sideways
  QPersistentModelIndex pressed_;    // where the mouse began to drag
  QString typed_;
  QElapsedTimer since_typed_;
  QString told_;
};

}  // namespace quor
