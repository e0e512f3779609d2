#include "platform/toolkit/date_picker.h"

namespace quor {

void DatePicker::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void DatePicker::pick(Date date) {
  if (!can_act() || date.without_time() == value_) return;
  set_value(date);
  run(on_change);
}

}  // namespace quor
