#include "platform/toolkit/captioned.h"

namespace quor {

void Captioned::set_caption(std::string caption) { put(caption_, std::move(caption), ControlChange::kContent); }

void Label::accept(ControlVisitor& visitor) { visitor.visit(*this); }
void Panel::accept(ControlVisitor& visitor) { visitor.visit(*this); }
void GroupFrame::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void CommandButton::accept(ControlVisitor& visitor) { visitor.visit(*this); }

void CommandButton::click() {
  if (can_act()) run(on_click);
}

}  // namespace quor
