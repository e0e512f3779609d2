#include "host/desktop/render/row_delegate.h"

#include "host/desktop/render/readable_red.h"

namespace quor {

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (!index.data(kRedRole).toBool()) return;
  QPalette& palette = option->palette;
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(group, QPalette::Text, red_on(palette.color(group, QPalette::Base)));
    palette.setColor(group, QPalette::HighlightedText, red_on(palette.color(group, QPalette::Highlight)));
  }
}

}  // namespace quor
