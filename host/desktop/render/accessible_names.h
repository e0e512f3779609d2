// What a screen reader calls the lists and buttons of a form: the label before them, the frame around them, or else the
// form.
#pragma once

#include <QWidget>
#include <vector>

#include "host/desktop/render/form_layout.h"
#include "platform/toolkit/form.h"

namespace quor {

void name_for_readers(const Form& form, const std::vector<std::pair<Control*, QWidget*>>& widgets,
                      const std::vector<FieldLabel>& labels);

}  // namespace quor
