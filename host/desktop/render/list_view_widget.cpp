#include "host/desktop/render/list_view_widget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <cmath>
#include <numeric>
#include <vector>

#include "host/desktop/render/header_widths.h"
#include "host/desktop/render/row_delegate.h"
#include "host/desktop/render/wrapping_header.h"

namespace quor {

namespace {

constexpr int kRowsWanted = 8;
constexpr int kRowsNeeded = 4;
constexpr int kWidestWanted = 900;
constexpr int kRowsMeasured = 300;
constexpr int kUsualDots = 96;  // an inch, in which the columns' widths are given

}  // namespace

ListViewWidget::ListViewWidget(ListView& list, FormActs& acts, const QString& name, QWidget* parent)
    : QTreeView(parent),
      list_(list),
      acts_(acts),
      model_(new ListViewModel(
          list, [this](std::size_t row) { acts_.act([&] { list_.check(row); }); }, this)) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setSelectionBehavior(SelectRows);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setItemDelegate(new RowDelegate(this));
  setHeader(new WrappingHeader(this));
  header()->setResizeContentsPrecision(kRowsMeasured);
  {
    // Taking a model tells of a selection that is not there yet: the form's own stays.
    const QScopedValueRollback<bool> scope(showing_, true);
    setModel(model_);
  }
  set_column_widths(name);
  show_change(ControlChange::kState);
  show_selection();
}

void ListViewWidget::set_column_widths(const QString& name) {
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int width = list_.columns()[static_cast<std::size_t>(column)].width * logicalDpiX() / kUsualDots;
    header()->resizeSection(column, qMax(width, header()->sectionSizeHint(column)));
  }
  own_widths_ = remember_widths(*header(), name);
}

// Columns that do not fit beside each other give what they do not need, all in the same measure, once the first rows
// are there.
void ListViewWidget::narrow_columns() {
  if (own_widths_ || list_.row_count() == 0 || !isVisible()) return;
  own_widths_ = true;
  // The scroll bar of the new rows may not be there yet.
  const bool bar_comes =
      !verticalScrollBar()->isVisible() && height_of_rows(static_cast<int>(list_.row_count())) > height();
  const int bar = bar_comes ? verticalScrollBar()->sizeHint().width() : 0;
  const int missing = header()->length() - (viewport()->width() - bar);
  if (missing <= 0) return;
  std::vector<int> spare;
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int needed = qMax(sizeHintForColumn(column), header()->sectionSizeHint(column));
    spare.push_back(qMax(0, header()->sectionSize(column) - needed));
  }
  const double all = std::accumulate(spare.begin(), spare.end(), 0);
  const double part = all > missing ? missing / all : 1.0;
  for (int column = 0; column < model_->columnCount(); ++column) {
    const double given = std::ceil(spare[static_cast<std::size_t>(column)] * part);
    header()->resizeSection(column, header()->sectionSize(column) - static_cast<int>(given));
  }
}

void ListViewWidget::show_change(ControlChange change) {
  switch (change) {
    case ControlChange::kState:
      setEnabled(list_.enabled());
      setVisible(list_.visible());
      break;
    case ControlChange::kContent:
      show_rows();
      break;
    case ControlChange::kSelection:
      show_selection();
      break;
    case ControlChange::kFocus:
      break;  // the view's matter
  }
}

void ListViewWidget::show_rows() {
  const int scrolled = verticalScrollBar()->value();
  const int aside = horizontalScrollBar()->value();
  {
    const QScopedValueRollback<bool> scope(showing_, true);
    model_->list_changed();
    executeDelayedItemsLayout();
  }
  narrow_columns();
  show_selection();
  if (list_.selected()) return;
  verticalScrollBar()->setValue(scrolled);
  horizontalScrollBar()->setValue(aside);
}

// Without a selected row the keys go on from where the user was.
void ListViewWidget::show_selection() {
  const QScopedValueRollback<bool> scope(showing_, true);
  const std::size_t rows = list_.row_count();
  if (list_.selected()) place_ = *list_.selected();
  const QModelIndex current = rows == 0 ? QModelIndex() : model_->index(static_cast<int>(qMin(place_, rows - 1)), 0);
  if (list_.selected()) {
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(current);
  } else {
    selectionModel()->clearSelection();
    selectionModel()->setCurrentIndex(place_ == 0 ? QModelIndex() : current, QItemSelectionModel::NoUpdate);
  }
}

void ListViewWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  if (showing_) return;
  const QModelIndexList rows = selectionModel()->selectedRows();
  std::optional<std::size_t> row;
  if (!rows.isEmpty()) row = static_cast<std::size_t>(rows.first().row());
  acts_.keystroke([&] { list_.select(row); });
}

std::optional<std::size_t> ListViewWidget::row_at(const QPoint& place) const {
  const QModelIndex index = indexAt(place);
  if (!index.isValid()) return {};
  return static_cast<std::size_t>(index.row());
}

void ListViewWidget::mousePressEvent(QMouseEvent* event) {
  if (!row_at(event->pos())) clearSelection();
  QTreeView::mousePressEvent(event);
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  // Two quick clicks on a check box are two clicks.
  if (list_.has_check_boxes() && indexAt(event->pos()).column() == 0) {
    QTreeView::mouseDoubleClickEvent(event);
    return;
  }
  acts_.command([this, row = row_at(event->pos())] { list_.double_click(row); });
}

void ListViewWidget::contextMenuEvent(QContextMenuEvent* event) {
  std::optional<std::size_t> row = list_.selected();
  QPoint place = event->globalPos();
  if (event->reason() == QContextMenuEvent::Mouse) {
    row = row_at(event->pos());
  } else if (row) {
    const QRect shown = visualRect(model_->index(static_cast<int>(*row), 0));
    place = viewport()->mapToGlobal(QPoint(qMax(0, shown.left()) + 20, shown.bottom()));
  } else {
    place = viewport()->mapToGlobal(QPoint(20, 20));
  }
  acts_.open_menus_at(place);
  acts_.command([&] { list_.right_click(row); });
}

void ListViewWidget::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  switch (event->key()) {
    case Qt::Key_Insert:
      used = acts_.choose_by_key(list_, MenuKey::kInsert);
      break;
    case Qt::Key_Delete:
      used = acts_.choose_by_key(list_, MenuKey::kDelete);
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      used = open_row();
      break;
    case Qt::Key_Space:
      used = list_.has_check_boxes() && currentIndex().isValid();
      if (used) acts_.act([&] { list_.check(static_cast<std::size_t>(currentIndex().row())); });
      break;
    default:
      QTreeView::keyPressEvent(event);
      return;
  }
  if (!used) event->ignore();
}

bool ListViewWidget::open_row() {
  if (!list_.selected()) return false;
  if (acts_.choose_by_key(list_, MenuKey::kEnter)) return true;
  if (!list_.on_double_click) return false;
  acts_.command([this] { list_.double_click(list_.selected()); });
  return true;
}

int ListViewWidget::height_of_rows(int rows) const {
  const int row_height = qMax(fontMetrics().height() + RowDelegate::kAir, sizeHintForRow(0));
  return header()->sizeHint().height() + rows * row_height + 2 * frameWidth() +
         horizontalScrollBar()->sizeHint().height();
}

QSize ListViewWidget::sizeHint() const {
  const int width = header()->length() + 2 * frameWidth() + verticalScrollBar()->sizeHint().width();
  return {qMin(width, kWidestWanted), height_of_rows(kRowsWanted)};
}

QSize ListViewWidget::minimumSizeHint() const { return {160, height_of_rows(kRowsNeeded)}; }

}  // namespace quor
