#include "host/desktop/render/frozen_columns.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include "host/desktop/render/wrapping_header.h"

namespace quor {

FrozenColumns::FrozenColumns(QTreeView& table) : QTreeView(&table), table_(table), edge_(new QWidget(this)) {
  edge_->setAutoFillBackground(true);
  edge_->setBackgroundRole(QPalette::Mid);
  if (dynamic_cast<WrappingHeader*>(table.header()) != nullptr) setHeader(new WrappingHeader(this));
  setModel(table.model());
  setSelectionModel(table.selectionModel());
  setItemDelegate(table.itemDelegate());
  setFocusPolicy(Qt::NoFocus);
  setFrameShape(QFrame::NoFrame);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(table.alternatingRowColors());
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(table.selectionBehavior());
  setVerticalScrollMode(table.verticalScrollMode());
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAutoScroll(false);
  header()->setStretchLastSection(false);
  header()->setSortIndicatorShown(table.header()->isSortIndicatorShown());
  setAccessibleName("Pirmieji stulpeliai");
  viewport()->installEventFilter(this);
  header()->viewport()->installEventFilter(this);
  connect(table.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { follow_rows(); });
  connect(table.header(), &QHeaderView::sectionResized, this, [this](int column, int, int size) {
    if (!isHidden() && !isColumnHidden(column)) header()->resizeSection(column, size);
  });
  hide();
}

void FrozenColumns::show_columns(int count) {
  if (count == 0) return hide();
  QHeaderView& of_table = *table_.header();
  int wanted = 0;
  for (int column = 0; column < header()->count(); ++column) {
    setColumnHidden(column, column >= count);
    if (column >= count) continue;
    header()->resizeSection(column, of_table.sectionSize(column));
    wanted += of_table.sectionSize(column);
  }
  header()->setFixedHeight(of_table.height());
  if (of_table.isSortIndicatorShown())
    header()->setSortIndicator(of_table.sortIndicatorSection(), of_table.sortIndicatorOrder());
  const QRect rows = table_.viewport()->geometry();
  setGeometry(rows.left(), of_table.geometry().top(), qMin(wanted, rows.width()), of_table.height() + rows.height());
  edge_->setGeometry(width() - 1, 0, 1, height());
  edge_->raise();
  show();
  raise();
  follow_rows();
}

void FrozenColumns::follow_rows() {
  if (isHidden()) return;
  executeDelayedItemsLayout();
  verticalScrollBar()->setValue(table_.verticalScrollBar()->value());
}

bool FrozenColumns::eventFilter(QObject* watched, QEvent* event) {
  if (watched == viewport()) return pass_on(*event, table_.viewport());
  if (watched == header()->viewport()) return pass_on(*event, table_.header()->viewport());
  return QTreeView::eventFilter(watched, event);
}

// The table's cell under this one lies as far to the left as the table is scrolled.
bool FrozenColumns::pass_on(QEvent& event, QWidget* to) const {
  const int aside = table_.horizontalScrollBar()->value();
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
      const auto& mouse = static_cast<const QMouseEvent&>(event);
      QMouseEvent passed(event.type(), mouse.position() - QPointF(aside, 0), mouse.globalPosition(), mouse.button(),
                         mouse.buttons(), mouse.modifiers());
      QCoreApplication::sendEvent(to, &passed);
      return true;
    }
    case QEvent::ContextMenu: {
      const auto& menu = static_cast<const QContextMenuEvent&>(event);
      QContextMenuEvent passed(menu.reason(), menu.pos() - QPoint(aside, 0), menu.globalPos(), menu.modifiers());
      QCoreApplication::sendEvent(to, &passed);
      return true;
    }
    case QEvent::Wheel:
      QCoreApplication::sendEvent(to, &event);
      return true;
    default:
      return false;
  }
}

}  // namespace quor
