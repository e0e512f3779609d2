// Asks why something is done: one line, which is kept.
#pragma once

#include <optional>
#include <string>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/text_box.h"

namespace quor {

class ReasonDialog : public Form {
 public:
  ListView lvwObjections{*this, "lvwObjections", {{.key = "", .caption = "Kas prieštarauja", .width = 560}}};
  TextBox txtReason{*this, "txtReason"};
  CommandButton cmdOK{*this, "cmdOK", "Gerai", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // `objections`: lines that speak against it; without any, no list is shown.
  ReasonDialog(QuorApplication& application, std::string caption, const std::string& objections);

  // None when the user gave up.
  const std::optional<std::string>& reason() const { return reason_; }

 private:
  void opening() override;
  void accept();

  QuorApplication& application_;
  std::vector<std::string> objections_;
  std::optional<std::string> reason_;
};

}  // namespace quor
