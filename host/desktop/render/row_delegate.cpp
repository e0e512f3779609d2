#include "host/desktop/render/row_delegate.h"

#include "host/desktop/render/readable_red.h"

namespace quor {

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  QPalette& palette = option->palette;
  if (found_.isValid() && index == found_) {
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
      palette.setColor(group, QPalette::Highlight, QColor(255, 224, 102));
      palette.setColor(group, QPalette::HighlightedText, Qt::black);
    }
  }
  if (!index.data(kRedRole).toBool()) return;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Text, red_on(palette.color(group, QPalette::Base)));
    palette.setColor(group, QPalette::HighlightedText, red_on(palette.color(group, QPalette::Highlight)));
  }
}

}  // namespace quor
