#include "host/desktop/edge/passing_menu.h"

namespace quor {

PassingMenu::PassingMenu(QWidget* owner) : QMenu(owner) {
  // It hides before it tells what was chosen.
  connect(
      this, &QMenu::aboutToHide, this, [this] { pass(); }, Qt::QueuedConnection);
}

QAction* PassingMenu::add_choice(const QString& caption, std::function<void()> choice) {
  QAction* const action = addAction(caption);
  connect(action, &QAction::triggered, this, [this, choice = std::move(choice)] { next_ = choice; });
  return action;
}

// The menu closes first; the owner is told in an event of its own behind that.
void PassingMenu::pass() {
  deleteLater();
  if (next_) QMetaObject::invokeMethod(parentWidget(), std::move(next_), Qt::QueuedConnection);
}

}  // namespace quor
