// Rows of lists with a little air, so that the eye keeps the line.
#pragma once

#include <QStyledItemDelegate>

namespace quor {

class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kAir);
  }
  static constexpr int kAir = 5;
};

}  // namespace quor
