// The list of one type's objects: sorted by a click on a column's head, searched by typing, opened and changed by the
// menus of the type's UI.
#pragma once

#include <QWidget>

#include "host/desktop/answers/object_menu.h"

class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace quor {

class PickModel;

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
  QTreeView& view() { return *view_; }

  // An object is to be opened or deleted, or a new one made.
  WantEntry on_want;
  // The user asks for a menu at that place of the screen.
  std::function<void(const MenuPlace& place, const QPoint& at)> on_menu;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void set_up_view(const QString& name);
  void search(const QString& text);
  void show_count();
  bool key_pressed(int key);
  void want(const MenuPlace& place, MenuPurpose purpose);
  void asked(const QPoint& place);

  DesktopApplication& application_;
  const std::string object_type_;
  std::string refusal_;  // why the list may not be viewed; "" when it may
  PickModel* model_ = nullptr;
  QSortFilterProxyModel* sorted_;
  QLineEdit* search_;
  QTreeView* view_;
  QLabel* count_;
};

}  // namespace quor
