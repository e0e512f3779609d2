#include "host/desktop/render/grid_widget.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/render/grid_model.h"
#include "host/desktop/render/row_delegate.h"
#include "platform/data/error.h"

namespace quor {

namespace {

constexpr int kUsualDots = 96;  // an inch, in which the columns' widths are given
constexpr int kRowsWanted = 12;
constexpr int kWidestHead = 320;
constexpr int kAir = 8;

}  // namespace

GridWidget::GridWidget(Grid& grid, FormActs& acts, QWidget* parent)
    : QTableView(parent),
      grid_(grid),
      acts_(acts),
      model_(new GridModel(
          grid, [this](std::size_t row, std::size_t column, const std::string& text) { enter(row, column, text); },
          this)) {
  setEditTriggers(AnyKeyPressed | EditKeyPressed | DoubleClicked);
  setSelectionMode(ContiguousSelection);
  setTabKeyNavigation(false);  // Tab leaves it, as every control
  setHorizontalScrollMode(ScrollPerPixel);
  setCornerButtonEnabled(false);
  setItemDelegate(new RowDelegate(this));
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kAir);
  verticalHeader()->setMaximumWidth(kWidestHead);
  {
    const QScopedValueRollback<bool> scope(showing_, true);
    setModel(model_);
  }
  show_columns();
  show_change(ControlChange::kState);
}

void GridWidget::show_change(ControlChange change) {
  if (change == ControlChange::kState) {
    setEnabled(grid_.enabled());
    setVisible(grid_.visible());
    viewport()->update();
  } else if (change == ControlChange::kContent) {
    const int columns = model_->columnCount();
    {
      const QScopedValueRollback<bool> scope(showing_, true);
      model_->grid_changed();
    }
    if (columns != model_->columnCount()) show_columns();
  }
  show_selection();
}

void GridWidget::show_columns() {
  for (int column = 0; column < model_->columnCount(); ++column) {
    const int width = grid_.columns()[static_cast<std::size_t>(column)].width * logicalDpiX() / kUsualDots;
    horizontalHeader()->resizeSection(column, qMax(width, horizontalHeader()->sectionSizeHint(column)));
  }
}

void GridWidget::show_selection() {
  if (model_->rowCount() == 0 || model_->columnCount() == 0) return;
  const QScopedValueRollback<bool> scope(showing_, true);
  const GridRange& range = grid_.range();
  const auto at = [this](std::size_t row, std::size_t column) {
    return model_->index(static_cast<int>(row), static_cast<int>(column));
  };
  const QItemSelection chosen(at(range.first_row, range.first_column), at(range.last_row, range.last_column));
  if (chosen.indexes() == selectionModel()->selectedIndexes()) return;
  selectionModel()->setCurrentIndex(at(range.first_row, range.first_column), QItemSelectionModel::NoUpdate);
  selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
}

void GridWidget::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (showing_ || selectionModel()->selection().isEmpty()) return;
  const QItemSelectionRange& range = selectionModel()->selection().first();
  const auto number = [](int place) { return static_cast<std::size_t>(place); };
  acts_.keystroke([&] {
    grid_.select({number(range.top()), number(range.left()), number(range.bottom()), number(range.right())});
  });
}

// ---- what the user does

void GridWidget::enter(std::size_t row, std::size_t column, const std::string& text) {
  run([&] { return grid_.enter(row, column, text); });
}

void GridWidget::run(const std::function<std::string()>& what) {
  std::string refusal;
  acts_.keystroke([&] { refusal = what(); });
  refused_ = !refusal.empty();
  if (!refused_) return;
  // A dialog may not stand on a cell that is just being left.
  QMetaObject::invokeMethod(
      this, [this, refusal] { acts_.act([&refusal] { throw Error(ErrorKind::kRefused, refusal); }); },
      Qt::QueuedConnection);
}

bool GridWidget::finish_typing() {
  refused_ = false;
  if (state() == EditingState) {
    if (auto* const editor = dynamic_cast<QLineEdit*>(focusWidget())) {
      commitData(editor);
      closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
  }
  return !refused_;
}

// Enter goes down, Tab goes on; neither opens the next cell.
void GridWidget::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  if (hint == QAbstractItemDelegate::SubmitModelCache) step(1, 0);
  if (hint == QAbstractItemDelegate::EditNextItem) step(0, 1);
  if (hint == QAbstractItemDelegate::EditPreviousItem) step(0, -1);
}

void GridWidget::step(int rows, int columns) {
  const QModelIndex next = currentIndex().siblingAtRow(currentIndex().row() + rows);
  const QModelIndex cell = next.siblingAtColumn(currentIndex().column() + columns);
  if (cell.isValid()) setCurrentIndex(cell);
}

// F2 leads into the cell, whatever it does in the window.
bool GridWidget::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_F2) {
    event->accept();
    return true;
  }
  return QTableView::event(event);
}

void GridWidget::keyPressEvent(QKeyEvent* event) {
  if (!obeys(*event)) QTableView::keyPressEvent(event);
}

bool GridWidget::obeys(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) {
    copy();
  } else if (event.matches(QKeySequence::Cut)) {
    cut();
  } else if (event.matches(QKeySequence::Paste)) {
    paste();
  } else if (event.matches(QKeySequence::Undo)) {
    acts_.keystroke([this] { grid_.undo(); });
  } else if (event.matches(QKeySequence::Redo) || event.keyCombination() == (Qt::CTRL | Qt::Key_Y)) {
    acts_.keystroke([this] { grid_.redo(); });
  } else if (event.keyCombination() == (Qt::CTRL | Qt::Key_D)) {
    run([this] { return grid_.fill_down(); });
  } else if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace) {
    run([this] { return grid_.erase(); });
  } else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
    // Of a cell that is being typed it comes here, too, before the cell is left.
    if (state() != EditingState) step(event.modifiers() & Qt::ShiftModifier ? -1 : 1, 0);
  } else {
    return false;
  }
  return true;
}

void GridWidget::copy() { QGuiApplication::clipboard()->setText(QString::fromStdString(grid_.copied())); }

void GridWidget::cut() {
  copy();
  run([this] { return grid_.erase(); });
}

void GridWidget::paste() {
  const std::string text = QGuiApplication::clipboard()->text().toStdString();
  if (!text.empty()) run([this, text] { return grid_.paste(text); });
}

void GridWidget::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new PassingMenu(this);
  const auto add = [&](const char* caption, const QKeySequence& key, bool enabled, auto does) {
    QAction* const action = menu->add_choice(caption, does);
    action->setShortcut(key);
    action->setEnabled(enabled);
  };
  const bool may_write = !grid_.read_only();
  add("&Atšaukti", QKeySequence::Undo, may_write && grid_.can_undo(),
      [this] { acts_.keystroke([this] { grid_.undo(); }); });
  add("&Grąžinti", QKeySequence::Redo, may_write && grid_.can_redo(),
      [this] { acts_.keystroke([this] { grid_.redo(); }); });
  menu->addSeparator();
  add("&Iškirpti", QKeySequence::Cut, may_write, [this] { cut(); });
  add("&Kopijuoti", QKeySequence::Copy, true, [this] { copy(); });
  add("Į&klijuoti", QKeySequence::Paste, may_write, [this] { paste(); });
  add("Užpildyti ž&emyn", Qt::CTRL | Qt::Key_D, may_write, [this] { run([this] { return grid_.fill_down(); }); });
  add("Iš&trinti", QKeySequence::Delete, may_write, [this] { run([this] { return grid_.erase(); }); });
  menu->popup(event->globalPos());
}

QSize GridWidget::sizeHint() const {
  const int rows = horizontalHeader()->sizeHint().height() + kRowsWanted * verticalHeader()->defaultSectionSize();
  const int wanted = verticalHeader()->sizeHint().width() + horizontalHeader()->length() + 2 * frameWidth();
  return {qMin(wanted + verticalScrollBar()->sizeHint().width(), 900),
          rows + horizontalScrollBar()->sizeHint().height()};
}

}  // namespace quor
