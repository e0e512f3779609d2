#include "host/desktop/render/wrapping_header.h"

namespace quor {

WrappingHeader::WrappingHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsClickable(false);
  setHighlightSections(false);
  setSectionsMovable(false);
  setStretchLastSection(false);
  // A column that is made wider or narrower may need more or fewer lines.
  connect(this, &QHeaderView::sectionResized, this, [this] { emit geometriesChanged(); });
}

QSize WrappingHeader::sectionSizeFromContents(int section) const {
  const QSize one_line = QHeaderView::sectionSizeFromContents(section);
  const QString caption = model()->headerData(section, Qt::Horizontal).toString();
  const QFontMetrics letters = fontMetrics();
  const int around = one_line.width() - letters.horizontalAdvance(caption);
  int longest_word = 0;
  for (const QString& word : caption.split(' ')) longest_word = qMax(longest_word, letters.horizontalAdvance(word));
  const QRect room(0, 0, qMax(longest_word, sectionSize(section) - around), one_line.height() * 10);
  const int lines_height = letters.boundingRect(room, Qt::TextWordWrap, caption).height();
  return {longest_word + around, one_line.height() - letters.height() + qMax(letters.height(), lines_height)};
}

}  // namespace quor
