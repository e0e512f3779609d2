// The tree at the left of the main window: the sections and groups that the plug-ins have registered, the types in
// them, the commands of each group, and below, what the host keeps itself.
#pragma once

#include <QTreeWidget>

#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/answers/object_menu.h"

namespace quor {

class ExplorerTree : public QTreeWidget {
 public:
  // The application's plug-ins are loaded, and it outlives the tree.
  ExplorerTree(DesktopApplication& application, QWidget* parent);

  // The user turns to a type; its list is to be shown.
  std::function<void(const std::string& object_type)> on_type;
  // The user asks for the menu of a type or group, at that place of the screen.
  std::function<void(const MenuPlace& place, const QPoint& at)> on_menu;
  // The user wants a command of a group carried out.
  ChooseEntry on_entry;

  // Stands on the type without being told of it; the first of all for "".
  void stand_on(const std::string& object_type);
  // "" when it stands on none.
  std::string current_type() const;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void add_layout(const RegisteredLayout& layout);
  void add_group(QTreeWidgetItem& section, const RegisteredGroup& group);
  void add_type(QTreeWidgetItem& parent, const std::string& object_type);
  void add_host_types();
  void turned_to(QTreeWidgetItem* item);
  void opened(QTreeWidgetItem* item);
  void asked(const QPoint& place);
  // Where the item stands for; by type code "" when it stands for nothing.
  static MenuPlace place_of(const QTreeWidgetItem& item);

  DesktopApplication& application_;
};

}  // namespace quor
