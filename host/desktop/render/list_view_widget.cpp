#include "host/desktop/render/list_view_widget.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
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
    : TableView(parent),
      list_(list),
      acts_(acts),
      model_(new ListViewModel(
          list, [this](std::size_t row) { acts_.act([&] { list_.check(row); }); }, this)) {
  setVerticalScrollMode(ScrollPerItem);
  setItemDelegate(new RowDelegate(this));
  setHeader(new WrappingHeader(this));
  header()->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header(), &QWidget::customContextMenuRequested, this, [this](const QPoint& place) {
    if (own_entries) acts_.show_entries(header()->viewport()->mapToGlobal(place), own_entries());
  });
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
  if (on_rows) on_rows();
  if (list_.selected()) return;
  verticalScrollBar()->setValue(scrolled);
  horizontalScrollBar()->setValue(aside);
}

// Without a selected row the keys go on from where the user was. Rows that he has selected together stay so while the
// form selects none but the one on which he stands.
void ListViewWidget::show_selection() {
  const QScopedValueRollback<bool> scope(showing_, true);
  if (list_.selected()) {
    place_ = *list_.selected();
    if (marked_only()) model_->show_row(place_);
  }
  const std::optional<int> row = model_->nearest_row(place_);
  const QModelIndex current = row ? model_->index(*row, qMax(0, currentIndex().column())) : QModelIndex();
  if (list_.selected()) {
    if (current == currentIndex() && selectionModel()->hasSelection()) return;
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(current);
  } else {
    selectionModel()->clearSelection();
    selectionModel()->setCurrentIndex(place_ == 0 ? QModelIndex() : current, QItemSelectionModel::NoUpdate);
  }
}

void ListViewWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  TableView::selectionChanged(selected, deselected);
  pass_selection_on();
}

void ListViewWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  TableView::currentChanged(current, previous);
  if (selectionModel()->hasSelection()) pass_selection_on();
}

// The one selected row; of several that on which the user stands. The view may move the user before it selects, or
// behind it.
std::optional<int> ListViewWidget::row_of_user() const {
  const QItemSelection selection = selectionModel()->selection();
  if (selection.isEmpty()) return {};
  const int first = selection.first().top();
  const bool one = std::all_of(selection.begin(), selection.end(), [&](const QItemSelectionRange& range) {
    return range.top() == first && range.bottom() == first;
  });
  return one || !currentIndex().isValid() ? first : currentIndex().row();
}

void ListViewWidget::pass_selection_on() {
  if (showing_) return;
  std::optional<std::size_t> row;
  if (const auto shown = row_of_user()) row = model_->list_row(*shown);
  if (row != list_.selected()) acts_.keystroke([&] { list_.select(row); });
}

void ListViewWidget::show_marked_only(bool marked_only) {
  const std::size_t place = list_.selected().value_or(place_);
  {
    const QScopedValueRollback<bool> scope(showing_, true);
    model_->show_marked_only(marked_only);
    executeDelayedItemsLayout();
  }
  std::optional<std::size_t> row = list_.selected();
  if (row && !model_->shown_row(*row)) {
    const auto nearest = model_->nearest_row(place);
    row = nearest ? std::optional(model_->list_row(*nearest)) : std::nullopt;
    acts_.keystroke([&] { list_.select(row); });
  }
  show_selection();
  if (on_rows) on_rows();
}

std::optional<std::size_t> ListViewWidget::row_at(const QPoint& place) const {
  const QModelIndex index = indexAt(place);
  if (!index.isValid()) return {};
  return model_->list_row(index.row());
}

void ListViewWidget::mousePressEvent(QMouseEvent* event) {
  if (!row_at(event->pos())) clearSelection();
  TableView::mousePressEvent(event);
}

void ListViewWidget::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  // Two quick clicks on a check box are two clicks.
  if (list_.has_check_boxes() && indexAt(event->pos()).column() == 0) {
    TableView::mouseDoubleClickEvent(event);
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
    const QRect shown = visualRect(model_->index(model_->shown_row(*row).value_or(0), 0));
    place = viewport()->mapToGlobal(QPoint(qMax(0, shown.left()) + 20, shown.bottom()));
  } else {
    place = viewport()->mapToGlobal(QPoint(20, 20));
  }
  acts_.right_click(list_, row, place, own_entries ? own_entries() : std::vector<ListEntry>());
}

void ListViewWidget::keyPressEvent(QKeyEvent* event) {
  bool used = false;
  switch (event->key()) {
    case Qt::Key_Insert:
      if (event->modifiers() != Qt::NoModifier) return TableView::keyPressEvent(event);
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
      if (used) acts_.act([&] { list_.check(model_->list_row(currentIndex().row())); });
      break;
    default:
      TableView::keyPressEvent(event);
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
