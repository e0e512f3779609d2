// Makes the widget of each kind of control.
#pragma once

#include <QWidget>
#include <functional>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/control.h"

namespace quor {

class CommandButton;

struct ControlWidget {
  QWidget* widget = nullptr;  // null for a control that has none
  // Shows what the control holds now. The captions that have mnemonics are not its matter.
  std::function<void(ControlChange)> show = {};
  QWidget* frame = nullptr;  // around the widget, with what belongs to it; null for none
};

struct WidgetPlace {
  QWidget* parent;
  FormActs& acts;
  QString form_name;                          // under which widths are kept
  std::function<void(CommandButton&)> press;  // what a click on a button does
};

ControlWidget make_control_widget(Control& control, const WidgetPlace& place);

}  // namespace quor
