#include "host/editors/constant_value_editor.h"

#include "host/editors/entered_values.h"
#include "platform/data/number_text.h"

namespace quor {

ConstantValueEditor::ConstantValueEditor(QuorApplication& application, std::optional<ConstantValue> value,
                                         std::set<Date> taken)
    : Form("Konstantos reikšmė"), application_(application), value_(value), taken_(std::move(taken)) {
  for (TextBox* box : {&txtDateFrom, &txtValue}) box->on_change = [this] { changed_ = true; };
  txtValue.on_key = [](char32_t key) { return key == U'.' ? U',' : key; };
  cmdOK.on_click = [this] { accept(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Galioja nuo", txtDateFrom), field("Reikšmė", txtValue), row({cmdOK, cmdCancel})}));
}

void ConstantValueEditor::opening() {
  entered_.reset();
  changed_ = false;
  txtDateFrom.set_text(value_ ? date_text(value_->from) : "");
  txtValue.set_text(value_ ? general_text(value_->value) : "");
}

void ConstantValueEditor::accept() {
  EnteredValues entered(application_);
  const Date from = entered.date(txtDateFrom, "Galioja nuo");
  const double value = entered.number(txtValue, "Reikšmė", kTariff);
  if (taken_.contains(from)) entered.refuse(txtDateFrom, "Reikšmė nuo " + date_text(from) + " jau yra.");
  if (entered.show_faults()) return;
  entered_ = {from, value};
  changed_ = false;
  close();
}

}  // namespace quor
