#include "host/desktop/render/table_view.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStatusTipEvent>

#include "host/desktop/render/frozen_columns.h"
#include "host/desktop/render/row_delegate.h"

namespace quor {

namespace {

constexpr int kMostColumnsKept = 3;

}  // namespace

TableView::TableView(QWidget* parent) : QTreeView(parent) {
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectItems);  // whole rows but by dragging: selectionCommand
  setHorizontalScrollMode(ScrollPerPixel);
  connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { show_kept_columns(); });
}

// ---- finding

std::optional<FoundCell> TableView::find(const QString& text, SearchFrom from) {
  const auto found = find_row(*model(), currentIndex(), text, from);
  if (auto* const delegate = dynamic_cast<RowDelegate*>(itemDelegate())) {
    delegate->show_found(found ? found->cell : QModelIndex());
    viewport()->update();
  }
  if (!found) return found;
  selectionModel()->setCurrentIndex(found->cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(found->cell);
  return found;
}

void TableView::keyboardSearch(const QString& typed) {
  const bool goes_on = since_typed_.isValid() && since_typed_.elapsed() < QApplication::keyboardInputInterval();
  typed_ = goes_on ? typed_ + typed : typed;
  since_typed_.start();
  // A letter typed anew leads on from the row on which it stands.
  QModelIndex from = currentIndex();
  if (!goes_on && from.isValid() && from.row() + 1 < model()->rowCount()) from = from.siblingAtRow(from.row() + 1);
  const QModelIndex found = find_row_beginning(*model(), from, typed_);
  if (!found.isValid()) return;
  selectionModel()->setCurrentIndex(found, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(found);
}

// ---- selecting, copying, summing up

QItemSelectionModel::SelectionFlags TableView::selectionCommand(const QModelIndex& index, const QEvent* event) const {
  const auto flags = QTreeView::selectionCommand(index, event);
  const bool drags = event != nullptr && event->type() == QEvent::MouseMove && index != pressed_ &&
                     selectionMode() == ExtendedSelection;
  return flags == QItemSelectionModel::NoUpdate || drags ? flags : flags | QItemSelectionModel::Rows;
}

// A tree would look for branches, and take no cell beside its edge, where those lie that FrozenColumns shows.
void TableView::mousePressEvent(QMouseEvent* event) {
  pressed_ = indexAt(event->pos());
  QAbstractItemView::mousePressEvent(event);
}

void TableView::mouseDoubleClickEvent(QMouseEvent* event) { QAbstractItemView::mouseDoubleClickEvent(event); }

void TableView::copy_selected() const {
  const QString text = selected_text(*model(), selectionModel()->selection());
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

std::vector<ListEntry> TableView::copy_and_save_entries() {
  std::vector<ListEntry> entries = {{"Kopijuoti\tCtrl+C", [this] { copy_selected(); }}};
  if (!on_save) return entries;
  entries.push_back({"Įrašyti kaip XLSX…", [this] { on_save(TableFormat::kXlsx); }});
  entries.push_back({"Įrašyti kaip CSV…", [this] { on_save(TableFormat::kCsv); }});
  return entries;
}

void TableView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    copy_selected();
  } else {
    QTreeView::keyPressEvent(event);
  }
}

void TableView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  show_sums();
}

void TableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTreeView::currentChanged(current, previous);
  show_sums();
}

// A menu may have wiped the status line meanwhile.
void TableView::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  told_.clear();
  if (model() != nullptr) show_sums();
}

void TableView::hideEvent(QHideEvent* event) {
  QTreeView::hideEvent(event);
  tell({});
}

void TableView::show_sums() {
  tell(selected_sums(*model(), selectionModel()->selection(), qMax(0, currentIndex().column())));
}

// The status line of whatever window this stands in, if it has one.
void TableView::tell(const QString& text) {
  if (text == told_) return;
  told_ = text;
  QStatusTipEvent event(text);
  QCoreApplication::sendEvent(this, &event);
}

// ---- the columns that stay

int TableView::columns_kept() const {
  if (model() == nullptr) return 0;
  for (int column = 0; column < qMin(kMostColumnsKept, model()->columnCount() - 1); ++column) {
    if (column_alignment(*model(), column) == CellAlignment::kRight) continue;
    return header()->sectionPosition(column) + header()->sectionSize(column) <= viewport()->width() / 2 ? column + 1
                                                                                                        : 0;
  }
  return 0;
}

void TableView::show_kept_columns() {
  const int kept = horizontalScrollBar()->value() > 0 ? columns_kept() : 0;
  if (kept == 0 && frozen_ == nullptr) return;
  if (frozen_ == nullptr) frozen_ = new FrozenColumns(*this);
  frozen_->show_columns(kept);
}

void TableView::updateGeometries() {
  QTreeView::updateGeometries();
  show_kept_columns();
}

// A cell of a column that stays is in sight already; another one comes out from under them.
void TableView::scrollTo(const QModelIndex& index, ScrollHint hint) {
  const int kept = columns_kept(), aside = horizontalScrollBar()->value();
  QTreeView::scrollTo(index, hint);
  if (aside > 0 && index.column() < kept) return horizontalScrollBar()->setValue(aside);
  if (kept == 0 || horizontalScrollBar()->value() == 0) return;
  const int covered = header()->sectionPosition(kept) - header()->sectionViewportPosition(index.column());
  if (covered > 0) horizontalScrollBar()->setValue(horizontalScrollBar()->value() - covered);
}

}  // namespace quor
