#include "platform/toolkit/check_box.h"

namespace quor {

void CheckBox::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void CheckBox::toggle() {
  if (!can_act()) return;
  set_checked(!checked_);
  run(on_change);
}

}  // namespace quor
