#include "host/desktop/render/find_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

namespace quor {

namespace {

constexpr int kWidestText = 260;

QToolButton* tool(const QString& caption, const QString& name, QWidget* parent) {
  auto* const button = new QToolButton(parent);
  button->setText(caption);
  button->setToolTip(name);
  button->setAccessibleName(name);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit(this)),
      told_(new QLabel(this)),
      marked_(new QCheckBox("Tik pažymėtas", this)) {
  text_->setPlaceholderText("Ieškoti sąraše");
  text_->setAccessibleName("Paieška sąraše");
  text_->setMaximumWidth(kWidestText);
  text_->setClearButtonEnabled(true);
  text_->installEventFilter(this);
  told_->setTextFormat(Qt::PlainText);
  marked_->setToolTip("Tik eilutės, kurios viršija ribą arba pažymėtos (Ctrl+Shift+F)");
  auto* const next = tool("▼", "Kitas (F3)", this);
  auto* const previous = tool("▲", "Ankstesnis (Shift+F3)", this);
  auto* const close = tool("✕", "Užverti paiešką (Esc)", this);
  auto* const line = new QHBoxLayout(this);
  line->setContentsMargins(0, 2, 0, 0);
  line->addWidget(text_, 1);
  line->addWidget(next);
  line->addWidget(previous);
  line->addWidget(marked_);
  line->addWidget(told_, 1);
  line->addWidget(close);
  connect(text_, &QLineEdit::textEdited, this, [this] { find(SearchFrom::kThisRow); });
  connect(next, &QToolButton::clicked, this, [this] { find(SearchFrom::kNextRow); });
  connect(previous, &QToolButton::clicked, this, [this] { find(SearchFrom::kPreviousRow); });
  connect(marked_, &QCheckBox::toggled, this, [this](bool on) { on_marked(on); });
  connect(close, &QToolButton::clicked, this, [this] { on_close(); });
}

void FindBar::focus_text() {
  text_->setFocus();
  text_->selectAll();
}

bool FindBar::searches() const { return !text_->text().trimmed().isEmpty(); }

void FindBar::forget_text() {
  text_->clear();
  told_->clear();
}

void FindBar::find(SearchFrom from) {
  const auto found = on_find(text_->text(), from);
  if (!searches()) return told_->clear();
  if (!found) return told_->setText("nerasta");
  told_->setText(!found->wrapped ? QString() : from == SearchFrom::kPreviousRow ? "nuo pabaigos" : "nuo pradžios");
}

void FindBar::show_rows(bool marked_only, int shown, int all) {
  const QSignalBlocker quiet(marked_);
  marked_->setChecked(marked_only);
  marked_->setText(marked_only ? QString("Tik pažymėtas (rodoma %1 iš %2)").arg(shown).arg(all) : "Tik pažymėtas");
}

// What is typed here is not a dialog's: neither Enter nor Esc ends it.
bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& key = static_cast<QKeyEvent&>(*event);
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      find(key.modifiers() & Qt::ShiftModifier ? SearchFrom::kPreviousRow : SearchFrom::kNextRow);
      return true;
    case Qt::Key_Escape:
      on_close();
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      on_move(key);
      return true;
    default:
      return false;
  }
}

}  // namespace quor
