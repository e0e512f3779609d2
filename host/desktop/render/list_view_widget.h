// The widget of a list: rows under columns, one of them selected, with the mouse and the keys of an office program.
#pragma once

#include <QTreeView>

#include "host/desktop/render/form_acts.h"
#include "host/desktop/render/list_view_model.h"

namespace quor {

class ListViewWidget : public QTreeView {
 public:
  // `name` is that under which the columns' widths are kept.
  ListViewWidget(ListView& list, FormActs& acts, const QString& name, QWidget* parent);

  // Shows what the model holds now.
  void show_change(ControlChange change);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void set_column_widths(const QString& name);
  void narrow_columns();
  void show_rows();
  void show_selection();
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
