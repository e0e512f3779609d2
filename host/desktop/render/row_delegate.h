// Rows of lists with a little air, so that the eye keeps the line; cells that are over their limit in red, the cell
// that was searched for on a ground of its own.
#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

namespace quor {

class RowDelegate : public QStyledItemDelegate {
 public:
  // True for a cell that is to be red; the ground decides which red.
  static constexpr int kRedRole = Qt::UserRole;

  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kAir);
  }
  static constexpr int kAir = 5;

  // Invalid: none.
  void show_found(const QModelIndex& cell) { found_ = cell; }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  QPersistentModelIndex found_;
};

}  // namespace quor
