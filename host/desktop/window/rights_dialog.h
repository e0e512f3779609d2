// The administration of users: who they are, and the five rights of each on the components that the plug-ins list and
// on the host's own object types.
#pragma once

#include <QDialog>
#include <vector>

#include "host/application/user_rights.h"
#include "host/desktop/answers/desktop_application.h"

class QCheckBox;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace quor {

class RightsDialog : public QDialog {
 public:
  // Reads users and components; throws StoreError, and Error when the application's user is no administrator. The
  // application outlives the dialog.
  RightsDialog(DesktopApplication& application, QWidget* parent);

 private:
  void add_buttons();
  void add_components();
  void ask_new_user();
  void remove_user();
  void show_users(int current);
  void show_user();
  void take_check(QTreeWidgetItem* item, int column);
  void store();
  CompanyUser* current();

  DesktopApplication& application_;
  std::vector<CompanyUser> users_;
  QListWidget* list_;
  QCheckBox* administrator_;
  QTreeWidget* rights_;
};

}  // namespace quor
