#include "platform/toolkit/control.h"

#include <algorithm>

namespace quor {

Control* ControlSet::find(std::string_view name) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(), [&](const Control* control) { return control->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

Control::Control(ControlSet& owner, std::string name) : name_(std::move(name)) { owner.controls_.push_back(this); }

void Control::set_enabled(bool enabled) { put(enabled_, enabled, ControlChange::kState); }
void Control::set_visible(bool visible) { put(visible_, visible, ControlChange::kState); }

void Control::tell(ControlChange change) const {
  if (observer_) observer_(change);
}

}  // namespace quor
