// The user's desk top: the objects that he has put there, kept in the company between starts.
#pragma once

#include <QListWidget>

#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/answers/object_menu.h"

namespace quor {

class DeskTopPane : public QListWidget {
 public:
  // The application outlives the pane.
  DeskTopPane(DesktopApplication& application, QWidget* parent);

  // Reads again what stands on the desk top. An object whose record is gone is shown as such, to be taken away.
  void refresh();

  // The key of the object on which the user stands; "" when on none.
  std::string current() const;

  WantEntry on_want;
  std::function<void(const MenuPlace& place, const QPoint& at)> on_menu;
  // The user takes the object away.
  std::function<void(const std::string& key)> on_remove;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void open(QListWidgetItem* item);
  void asked(const QPoint& place);

  DesktopApplication& application_;
};

}  // namespace quor
