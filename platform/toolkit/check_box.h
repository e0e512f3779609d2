// A box that is checked or not, with its caption beside it.
#pragma once

#include <functional>
#include <string>

#include "platform/toolkit/captioned.h"

namespace quor {

class CheckBox : public Captioned {
 public:
  CheckBox(ControlSet& owner, std::string name, std::string caption)
      : Captioned(owner, std::move(name), std::move(caption)) {}
  bool checked() const { return checked_; }
  void set_checked(bool checked) { put(checked_, checked, ControlChange::kContent); }
  void accept(ControlVisitor& visitor) override;

  // The user changes it over.
  void toggle();
  std::function<void()> on_change;

 private:
  bool checked_ = false;
};

}  // namespace quor
