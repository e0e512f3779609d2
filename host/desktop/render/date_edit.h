// The widget of a date picker: the date as 2008.01.31, with a Lithuanian calendar to drop down.
#pragma once

#include <QDateEdit>

#include "host/desktop/render/form_acts.h"
#include "platform/toolkit/date_picker.h"

namespace quor {

class DateEdit : public QDateEdit {
 public:
  DateEdit(DatePicker& picker, FormActs& acts, QWidget* parent);

  // Shows what the model holds now.
  void show_change(ControlChange change);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  DatePicker& picker_;
  FormActs& acts_;
};

}  // namespace quor
