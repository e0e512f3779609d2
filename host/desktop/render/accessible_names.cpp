#include "host/desktop/render/accessible_names.h"

#include <QGroupBox>
#include <algorithm>

#include "platform/toolkit/captioned.h"
#include "platform/toolkit/grid.h"
#include "platform/toolkit/list_view.h"

namespace quor {

namespace {

QString label_of(const Control& control, const std::vector<FieldLabel>& labels) {
  const auto found = std::find_if(labels.begin(), labels.end(), [&](const FieldLabel& label) {
    return std::find(label.controls.begin(), label.controls.end(), &control) != label.controls.end();
  });
  return found == labels.end() ? QString() : found->text;
}

QString title_around(const QWidget& widget) {
  for (const QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
    const auto* const frame = dynamic_cast<const QGroupBox*>(around);
    if (frame != nullptr && !frame->title().isEmpty()) return QString(frame->title()).replace("&&", "&");
  }
  return {};
}

}  // namespace

void name_for_readers(const Form& form, const std::vector<std::pair<Control*, QWidget*>>& widgets,
                      const std::vector<FieldLabel>& labels) {
  for (const auto& [control, widget] : widgets) {
    const auto* const button = dynamic_cast<const CommandButton*>(control);
    QString name = label_of(*control, labels);
    if (button != nullptr && (button->caption() == "..." || button->caption() == "…")) {
      widget->setAccessibleName(name.isEmpty() ? QString("Parinkti") : "Parinkti: " + name);
    } else if (dynamic_cast<const ListView*>(control) != nullptr || dynamic_cast<const Grid*>(control) != nullptr) {
      if (name.isEmpty()) name = title_around(*widget);
      widget->setAccessibleName(name.isEmpty() ? QString::fromStdString(form.caption()) : name);
    }
  }
}

}  // namespace quor
