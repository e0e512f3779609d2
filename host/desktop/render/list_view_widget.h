// The widget of a list, with the mouse and the keys of an office program. However many rows are selected, the form
// hears of one: that on which the user stands.
#pragma once

#include "host/desktop/render/form_acts.h"
#include "host/desktop/render/list_view_model.h"
#include "host/desktop/render/table_view.h"

namespace quor {

class ListViewWidget : public TableView {
 public:
  // `name` is that under which the columns' widths are kept.
  ListViewWidget(ListView& list, FormActs& acts, const QString& name, QWidget* parent);

  // Shows what the model holds now.
  void show_change(ControlChange change);

  // The marked rows alone; the user stands on the nearest of them.
  void show_marked_only(bool marked_only);
  bool marked_only() const { return model_->marked_only(); }
  std::size_t all_rows() const { return list_.row_count(); }

  // Entries beside those of the list; and told when the rows have changed.
  std::function<std::vector<ListEntry>()> own_entries;
  std::function<void()> on_rows;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void set_column_widths(const QString& name);
  void narrow_columns();
  void show_rows();
  void show_selection();
  void pass_selection_on();
  std::optional<int> row_of_user() const;
  std::optional<std::size_t> row_at(const QPoint& place) const;
  bool open_row();
  int height_of_rows(int rows) const;

  ListView& list_;
  FormActs& acts_;
  ListViewModel* const model_;
  bool own_widths_ = false;  // the user's; or the columns have been narrowed
  bool showing_ = false;     // the widget follows the model
  std::size_t place_ = 0;    // the row on which the user was last
};

}  // namespace quor
