// The dialog of the office's name.
#pragma once

#include <memory>

#include "host/application/application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class OfficeEditor : public Form {
 public:
  TextBox txtName{*this, "txtName"};
  CommandButton cmdOK{*this, "cmdOK", "Įrašyti", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  explicit OfficeEditor(Application& application);

  bool has_unsaved_changes() const override { return txtName.text() != read_; }

 private:
  void opening() override;
  void write();

  Application& application_;
  std::string read_;
};

// To be shown as a dialog. Throws Error for whoever is no administrator.
std::shared_ptr<Form> office_editor(Application& application);

}  // namespace quor
