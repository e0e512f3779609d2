// The list of one type's objects: sorted by a click on a column's head, searched by typing, opened and changed by the
// menus of the type's UI.
#pragma once

#include <QWidget>

#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/answers/object_menu.h"
#include "host/desktop/render/table_view.h"

namespace quor {

class ObjectList;

class ObjectListPane : public QWidget {
 public:
  // Reads the list; throws what reading it throws. The application outlives the pane.
  ObjectListPane(DesktopApplication& application, const std::string& object_type, QWidget* parent);

  const std::string& object_type() const { return object_type_; }
  // Reads the list again; the user stays on his object. A list that he may not view is empty and says so beside it.
  void refresh();
  // Stands on the object, when what is searched for shows it.
  void stand_on(const std::string& key);
  // The object on which the user stands; "" when on none.
  std::string current() const;
  void focus_list();
  QTreeView& view();
  // What every list offers, beside what can be done with its objects.
  std::vector<ListEntry> entries();

  // An object is to be opened or deleted, or a new one made.
  WantEntry on_want;
  // The user asks for a menu at that place of the screen.
  std::function<void(const MenuPlace& place, const QPoint& at)> on_menu;

 private:
  void set_up_view();
  bool key_pressed(int key);
  void want(const MenuPlace& place, MenuPurpose purpose);
  void asked(const QPoint& place);

  DesktopApplication& application_;
  const std::string object_type_;
  ObjectList* list_ = nullptr;
};

}  // namespace quor
