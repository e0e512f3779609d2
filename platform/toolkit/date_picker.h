// A date picker: one calendar date, without time of day.
#pragma once

#include <functional>

#include "platform/data/date.h"
#include "platform/toolkit/control.h"

namespace quor {

class DatePicker : public Control {
 public:
  DatePicker(ControlSet& owner, std::string name) : Control(owner, std::move(name)) {}
  Date value() const { return value_; }
  // The time of day is dropped.
  void set_value(Date value) { put(value_, value.without_time(), ControlChange::kContent); }
  void accept(ControlVisitor& visitor) override;

  // The user chooses a date; the same date again is no change.
  void pick(Date date);
  std::function<void()> on_change;

 private:
  Date value_;
};

}  // namespace quor
