// The form of a department: its name and the department to which it belongs, chosen from the tree of all.
#pragma once

#include "host/editors/record_form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class DepartmentEditor : public RecordForm {
 public:
  TextBox txtName{*this, "txtName"};
  TextBox txtParent{*this, "txtParent"};  // its tag is the key of the department above, "" at the top
  CommandButton cmdChooseParent{*this, "cmdChooseParent", "Pasirinkti…"};
  CommandButton cmdNoParent{*this, "cmdNoParent", "Be aukštesnio"};

  DepartmentEditor(Application& application, std::shared_ptr<QuorObjectUIO> record);

 private:
  void show_record(bool may_write) override;
  bool take(EnteredValues& entered) override;

  void choose_parent();
  void set_parent(const std::string& key, const std::string& name);

  bool may_write_ = false;
};

// Of the department with the key, or of a new one; null after a refusal that has been shown.
std::shared_ptr<Form> department_editor(Application& application, const std::string& object);

}  // namespace quor
