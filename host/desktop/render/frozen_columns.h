// The first columns of a table, laid over it while it is scrolled sideways. They show what the table holds and have no
// life of their own: the mouse over them goes to the table's own cells, which stand beside the window's edge.
#pragma once

#include <QTreeView>

namespace quor {

class FrozenColumns : public QTreeView {
 public:
  // A child of the table.
  explicit FrozenColumns(QTreeView& table);

  // The first `count` columns, as the table has them now; none hides them all.
  void show_columns(int count);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void follow_rows();
  bool pass_on(QEvent& event, QWidget* to) const;

  QTreeView& table_;
  QWidget* const edge_;  // a line behind which the other columns pass
};

}  // namespace quor
