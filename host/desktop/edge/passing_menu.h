// A pop-up menu that is gone before what was chosen in it runs. A choice may open a dialog: its loop then finds no menu
// on the screen, and frees none on which the choice still stands.
#pragma once

#include <QMenu>
#include <functional>

namespace quor {

class PassingMenu : public QMenu {
 public:
  // Frees itself once it has closed; the owner outlives what is chosen in it.
  explicit PassingMenu(QWidget* owner);

  QAction* add_choice(const QString& caption, std::function<void()> choice);
  // Runs in a choice's place when the menu closes without one.
  void on_dismissed(std::function<void()> dismissed) { next_ = std::move(dismissed); }

 private:
  void pass();
  std::function<void()> next_;
};

}  // namespace quor
