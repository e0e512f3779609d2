// The widget of a choice box: what the user chooses goes to the model, whose answer is then shown.
#pragma once

#include <QComboBox>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/choice_box.h"

namespace quor {

class ChoiceEdit : public QComboBox {
 public:
  ChoiceEdit(ChoiceBox& box, FormActs& acts, QWidget* parent);
  void show_change(ControlChange change);

 protected:
  void wheelEvent(QWheelEvent* event) override;

 private:
  ChoiceBox& box_;
};

}  // namespace quor
