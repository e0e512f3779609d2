#include "host/desktop/render/text_box_edit.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QStyle>

#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/render/calendar.h"
#include "platform/data/date.h"

namespace quor {

namespace {

// Qt counts UTF-16 units, the model characters.
std::size_t characters(const QString& text) { return static_cast<std::size_t>(text.toUcs4().size()); }

int units(const QString& text, std::size_t characters) {
  qsizetype unit = 0;
  for (; characters > 0 && unit < text.size(); --characters) unit += text[unit].isHighSurrogate() ? 2 : 1;
  return static_cast<int>(qMin(unit, text.size()));
}

// The window is another's for a while; the user is still in the box.
bool comes_back(Qt::FocusReason reason) {
  return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason || reason == Qt::MenuBarFocusReason;
}

bool is_typed(const QKeyEvent& event) {
  const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
  const bool by_command =
      modifiers == Qt::ControlModifier || modifiers == Qt::AltModifier || modifiers == Qt::MetaModifier;
  return !by_command && !event.text().isEmpty() && event.text()[0].isPrint();
}

}  // namespace

TextBoxEdit::TextBoxEdit(TextBox& box, FormActs& acts, QWidget* parent) : QLineEdit(parent), box_(box), acts_(acts) {
  setAcceptDrops(false);
  if (box.kind() == TextBox::Kind::kDate) offer_calendar();
  connect(this, &QLineEdit::selectionChanged, this, [this] { tell_selection(); });
  connect(this, &QLineEdit::cursorPositionChanged, this, [this] { tell_selection(); });
  // Whatever way of editing was forgotten here: the model's text stands.
  connect(this, &QLineEdit::textEdited, this, [this] { show_change(ControlChange::kContent); });
  show_change(ControlChange::kState);
  show_change(ControlChange::kContent);
}

// By mouse at the end of the box, by Alt and the arrow down as in every box that drops something down.
void TextBoxEdit::offer_calendar() {
  setPlaceholderText("metai.mėnuo.diena");
  QAction* const open = addAction(style()->standardIcon(QStyle::SP_ArrowDown), TrailingPosition);
  open->setShortcut(Qt::ALT | Qt::Key_Down);
  open->setShortcutContext(Qt::WidgetShortcut);
  open->setToolTip("Kalendorius (Alt+↓)");
  connect(open, &QAction::triggered, this, [this] {
    if (box_.read_only()) return;
    const auto typed = try_parse_date(box_.text());
    const QDate shown = typed ? QDate(typed->year(), typed->month(), typed->day()) : QDate::currentDate();
    show_calendar(*this, shown, [this](QDate date) {
      acts_.keystroke([&] {
        box_.select(0, characters(text()));
        box_.paste(date.toString("yyyy.MM.dd").toStdString());
      });
    });
  });
}

void TextBoxEdit::show_change(ControlChange change) {
  if (change == ControlChange::kState) {
    setReadOnly(box_.read_only());
    setEnabled(box_.enabled());
    setVisible(box_.visible());
    // What cannot be typed into does not look as if it could.
    QPalette look = parentWidget()->palette();
    if (box_.read_only()) look.setColor(QPalette::Base, look.color(QPalette::Window));
    setPalette(look);
    return;
  }
  if (telling_) return;
  const QScopedValueRollback<bool> scope(showing_, true);
  const QString text = QString::fromStdString(box_.text());
  if (text != this->text()) setText(text);
  show_selection();
}

void TextBoxEdit::show_selection() {
  const int start = units(text(), box_.selection_start());
  const int end = units(text(), box_.selection_start() + box_.selection_length());
  if (end == start) {
    deselect();
    setCursorPosition(start);
  } else if (start != selectionStart() || end != selectionEnd()) {
    setSelection(start, end - start);
  }
}

void TextBoxEdit::tell_selection() {
  if (showing_) return;
  const QScopedValueRollback<bool> scope(telling_, true);
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  box_.select(characters(text().left(start)), characters(selectedText()));
}

void TextBoxEdit::enter_box() {
  if (entered_) return;
  entered_ = true;
  box_.enter();
}

void TextBoxEdit::leave_box() {
  if (!entered_) return;
  entered_ = false;
  box_.leave();
}

void TextBoxEdit::keyPressEvent(QKeyEvent* event) {
  if (isReadOnly() || !type(*event)) QLineEdit::keyPressEvent(event);
}

bool TextBoxEdit::type(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Paste)) {
    paste_text(QGuiApplication::clipboard()->text());
  } else if (event.matches(QKeySequence::Cut)) {
    cut_selection();
  } else if (event.matches(QKeySequence::Undo)) {
    undo_last();
  } else if (event.matches(QKeySequence::Redo)) {
    redo_last();
  } else if (event.matches(QKeySequence::DeleteStartOfWord)) {
    if (!hasSelectedText()) cursorWordBackward(true);
    if (hasSelectedText()) erase();
  } else if (event.matches(QKeySequence::DeleteEndOfWord)) {
    if (!hasSelectedText()) cursorWordForward(true);
    if (hasSelectedText()) erase();
  } else if (event.key() == Qt::Key_Delete) {
    erase();
  } else if (event.key() == Qt::Key_Backspace) {
    acts_.keystroke([this] { box_.type_key(TextBox::kBackspace); });
  } else if (is_typed(event)) {
    acts_.keystroke([&] {
      for (const uint character : event.text().toUcs4()) box_.type_key(character);
    });
  } else {
    return false;
  }
  return true;
}

void TextBoxEdit::undo_last() {
  acts_.keystroke([this] { box_.undo(); });
}

void TextBoxEdit::redo_last() {
  acts_.keystroke([this] { box_.redo(); });
}

void TextBoxEdit::cut_selection() {
  if (!hasSelectedText()) return;
  copy();
  erase();
}

// A cell copied from a table brings its end of line along.
void TextBoxEdit::paste_text(QString text) {
  while (text.endsWith('\n') || text.endsWith('\r')) text.chop(1);
  text.replace("\r\n", " ").replace('\n', ' ').replace('\t', ' ');
  acts_.keystroke([&] { box_.paste(text.toStdString()); });
}

void TextBoxEdit::erase() {
  acts_.keystroke([this] { box_.erase(); });
}

void TextBoxEdit::inputMethodEvent(QInputMethodEvent* event) {
  const QString committed = event->commitString();
  QInputMethodEvent composing(event->preeditString(), event->attributes());
  QLineEdit::inputMethodEvent(&composing);
  if (!committed.isEmpty() && !isReadOnly()) {
    acts_.keystroke([&] { box_.paste(committed.toStdString()); });
  }
  event->setAccepted(composing.isAccepted());
}

// The middle button pastes what is selected anywhere.
void TextBoxEdit::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) {
    QLineEdit::mouseReleaseEvent(event);
  } else if (!isReadOnly()) {
    paste_text(QGuiApplication::clipboard()->text(QClipboard::Selection));
  }
}

void TextBoxEdit::contextMenuEvent(QContextMenuEvent* event) {
  auto* const menu = new PassingMenu(this);
  const auto add = [&](const char* caption, QKeySequence::StandardKey key, bool enabled, auto run) {
    QAction* const action = menu->add_choice(caption, run);
    action->setShortcut(key);
    action->setEnabled(enabled);
  };
  add("&Atšaukti", QKeySequence::Undo, box_.can_undo(), [this] { undo_last(); });
  add("&Grąžinti", QKeySequence::Redo, box_.can_redo(), [this] { redo_last(); });
  menu->addSeparator();
  add("&Iškirpti", QKeySequence::Cut, hasSelectedText() && !isReadOnly(), [this] { cut_selection(); });
  add("&Kopijuoti", QKeySequence::Copy, hasSelectedText(), [this] { copy(); });
  add("Į&klijuoti", QKeySequence::Paste, !isReadOnly() && !QGuiApplication::clipboard()->text().isEmpty(),
      [this] { paste_text(QGuiApplication::clipboard()->text()); });
  menu->addSeparator();
  add("Pažymėti &viską", QKeySequence::SelectAll, !text().isEmpty(), [this] { selectAll(); });
  menu->popup(event->globalPos());
}

void TextBoxEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  const auto enter = [this] {
    if (hasFocus()) acts_.keystroke([this] { enter_box(); });
  };
  // The form has disabled or hidden where the focus was: its handler ends first.
  if (acts_.acting()) {
    QMetaObject::invokeMethod(this, enter, Qt::QueuedConnection);
  } else {
    enter();
  }
}

void TextBoxEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (!comes_back(event->reason())) acts_.keystroke([this] { leave_box(); });
}

}  // namespace quor
