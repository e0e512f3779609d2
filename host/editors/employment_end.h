// The dialog of an employee's last day: it ends on it every position that runs on, and the charges, too, if the user
// wants that.
#pragma once

#include <cstdint>
#include <string>

#include "host/application/application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class EmploymentEnd : public Form {
 public:
  TextBox txtDay{*this, "txtDay", TextBox::Kind::kDate};
  CommandButton cmdEnd{*this, "cmdEnd", "Užbaigti", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // The application outlives the dialog.
  EmploymentEnd(Application& application, std::int32_t employee);

  // Whether the employment was ended since the dialog was opened.
  bool ended() const { return ended_; }
  std::string subject() const override;

 private:
  void opening() override;
  void end();

  Application& application_;
  const std::int32_t employee_;
  bool ended_ = false;
};

}  // namespace quor
