// What a clerk sees first: who reaches another percentage for length of service in this month and those that follow.
#pragma once

#include "host/application/application.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "platform/toolkit/list_view.h"

namespace quor {

class FirstPage : public Form {
 public:
  Panel pnlSteps{*this, "pnlSteps"};
  Label lblState{*this, "lblState"};  // how many, or why none are told
  DatePicker dtpMonth{*this, "dtpMonth"};
  ChoiceBox chcMonths{*this, "chcMonths"};  // how many
  ListView lvwSteps;
  CommandButton cmdShow{*this, "cmdShow", "Rodyti", ButtonRole::kFill};

  // More people than this are read at the button alone.
  static constexpr std::int64_t kPeopleReadAtOnce = 5000;

  // The application outlives the form.
  explicit FirstPage(Application& application);

 private:
  void opening() override;
  void read();

  Application& application_;
};

}  // namespace quor
