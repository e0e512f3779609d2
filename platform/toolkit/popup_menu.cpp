#include "platform/toolkit/popup_menu.h"

namespace quor {

void PopupMenu::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void PopupMenu::dismiss() {
  if (!open_) return;
  put(open_, false, ControlChange::kContent);
  run(on_close);
}

MenuItem::MenuItem(ControlSet& owner, PopupMenu& menu, std::string name, std::string caption, MenuKey key)
    : Captioned(owner, std::move(name), std::move(caption)), menu_(menu), key_(key) {
  menu.items_.push_back(this);
}

void MenuItem::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void MenuItem::choose() {
  if (!can_act() || !menu_.is_open()) return;
  menu_.put(menu_.open_, false, ControlChange::kContent);
  run(on_choose);
  run(menu_.on_close);
}

}  // namespace quor
