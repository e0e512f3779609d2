#include "host/desktop/render/header_widths.h"

#include <QGuiApplication>
#include <QSettings>

namespace quor {

namespace {

void keep(const QHeaderView& header, const QString& key) {
  QStringList widths;
  for (int column = 0; column < header.count(); ++column) widths << QString::number(header.sectionSize(column));
  QSettings().setValue(key, widths);
}

}  // namespace

bool remember_widths(QHeaderView& header, const QString& name) {
  // A slash in a caption would part the key.
  const QString key = "columns/" + QString(name).replace('/', '_').replace('\\', '_');
  const QStringList widths = QSettings().value(key).toStringList();
  const bool kept = widths.size() == header.count();
  if (kept) {
    for (int column = 0; column < header.count(); ++column) {
      header.resizeSection(column, qMax(header.minimumSectionSize(), widths[column].toInt()));
    }
  }
  QObject::connect(&header, &QHeaderView::sectionResized, &header, [&header, key] {
    if (QGuiApplication::mouseButtons() != Qt::NoButton) keep(header, key);  // else the program did it
  });
  return kept;
}

}  // namespace quor
