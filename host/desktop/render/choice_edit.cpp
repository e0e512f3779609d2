#include "host/desktop/render/choice_edit.h"

#include <QSignalBlocker>
#include <QWheelEvent>

namespace quor {

ChoiceEdit::ChoiceEdit(ChoiceBox& box, FormActs& acts, QWidget* parent) : QComboBox(parent), box_(box) {
  setSizeAdjustPolicy(AdjustToContents);
  connect(this, &QComboBox::activated, this, [this, &acts](int index) {
    acts.act([this, index] { box_.choose(static_cast<std::size_t>(index)); });
    show_change(ControlChange::kSelection);  // the form may have chosen another
  });
  show_change(ControlChange::kState);
  show_change(ControlChange::kContent);
}

void ChoiceEdit::show_change(ControlChange change) {
  const QSignalBlocker silent(this);
  if (change == ControlChange::kState) {
    setEnabled(box_.enabled());
    setVisible(box_.visible());
  } else if (change == ControlChange::kContent) {
    clear();
    for (const ChoiceBox::Item& item : box_.items()) addItem(QString::fromStdString(item.text));
  }
  setCurrentIndex(box_.selected() ? static_cast<int>(*box_.selected()) : -1);
}

// Scrolling a window must not change a choice under the pointer.
void ChoiceEdit::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace quor
