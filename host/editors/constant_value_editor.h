// The dialog of one value of a salary constant: from which day on, and how much.
#pragma once

#include <optional>
#include <set>

#include "frame/contract/quor_application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/text_box.h"

namespace quor {

struct ConstantValue {
  Date from;
  double value;
};

class ConstantValueEditor : public Form {
 public:
  TextBox txtDateFrom{*this, "txtDateFrom", TextBox::Kind::kDate};
  TextBox txtValue{*this, "txtValue"};
  CommandButton cmdOK{*this, "cmdOK", "Gerai", ButtonRole::kAccept};
  CommandButton cmdCancel{*this, "cmdCancel", "Atšaukti", ButtonRole::kDismiss};

  // None: a new one. `taken` are the days from which the constant has its other values.
  ConstantValueEditor(QuorApplication& application, std::optional<ConstantValue> value, std::set<Date> taken);

  // What was entered; none when the dialog was left without.
  const std::optional<ConstantValue>& entered() const { return entered_; }
  bool has_unsaved_changes() const override { return changed_; }

 private:
  void opening() override;
  void accept();

  QuorApplication& application_;
  const std::optional<ConstantValue> value_;
  const std::set<Date> taken_;
  std::optional<ConstantValue> entered_;
  bool changed_ = false;
};

}  // namespace quor
