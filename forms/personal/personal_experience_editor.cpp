#include "forms/personal/personal_experience_editor.h"

#include "frame/catalogue.h"
#include "frame/numeric_box.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace velmora {

namespace {

constexpr char kExperienceRecord[] = "OfficeEmployeeExperience";

std::int16_t whole_number(const std::string& text) {
  return quor::is_numeric(text) ? quor::Variant(text).to_int16() : std::int16_t{0};
}

// The caret goes behind the text, where the refused character was typed.
void put_back(quor::TextBox& box, const std::string& text) {
  if (box.text() == text) return;
  box.set_text(text);
  box.select(quor::character_count(text), 0);
}

}  // namespace

frmOfficeEmployeePersonalExperience::frmOfficeEmployeePersonalExperience(quor::QuorApplication& application)
    : Form("Tarnybos stažas"), application_(application) {
  for (quor::TextBox* box : {&txtYears, &txtMonthes}) {
    make_numeric_box(*box, 0);
    box->on_change = [this] { inputs_changed(); };
  }
  for (quor::DatePicker* picker : {&dtpDate, &dtpDate2}) picker->on_change = [this] { inputs_changed(); };
  for (quor::TextBox* box : {&txtYears2, &txtMonthes2}) box->set_read_only(true);
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { cancel(); };
  set_layout(
      column({group(frameMain, {field("Data", dtpDate), field("Metai", txtYears), field("Mėnesiai", txtMonthes)}),
              group(frameCurrent, {field("Data", dtpDate2), field("Metai", txtYears2), field("Mėnesiai", txtMonthes2)}),
              row({cmdWrite, cmdCancel})}));
}

void frmOfficeEmployeePersonalExperience::opening() {
  title_ = application_.Title();
  mCancel = false;
  employee_is_known_ = false;
  dtpDate.set_value(application_.Today());
  dtpDate2.set_value(DatePreview);
  txtYears.set_text("0");
  txtMonthes.set_text("0");
  if (const auto employee = quor::id_of_key(UserOIDR)) show_employee(*employee);
  set_button_states();
  computed_.reset();
  inputs_changed();
}

// A result that no length of service can have is an error of the act that led to it, and undoes it. A record that gives
// none itself is shown all the same, and every act on it stands until one gives a result: so it can be mended.
void frmOfficeEmployeePersonalExperience::inputs_changed() {
  try {
    show_second_service();
  } catch (const quor::Error&) {
    if (computed_) {
      take_back(*computed_);
      throw;
    }
    for (quor::TextBox* box : {&txtYears2, &txtMonthes2}) box->set_text("");
    return;
  }
  computed_ = inputs();
}

void frmOfficeEmployeePersonalExperience::write() {
  // What does not convert is refused before anything is written.
  const std::int16_t years = quor::Variant(txtYears.text()).to_int16();
  const std::int16_t months = quor::Variant(txtMonthes.text()).to_int16();
  quor::SaveStatus status;
  try {
    put_into_record(years, months);
    status = application_.NewMainBO()->SaveRecordset(kExperienceRecord, *rsExperience);
  } catch (...) {
    rsExperience->CancelBatch();
    throw;
  }
  if (status.Failed) {
    rsExperience->CancelBatch();
    application_.MessageBox(std::string("Įrašymas neatliktas!") + quor::kLineBreak + status.ErrorText,
                            quor::BoxIcon::kNone, quor::BoxButtons::kOk, title_);
    return;
  }
  close();
}

void frmOfficeEmployeePersonalExperience::cancel() {
  mCancel = true;
  close();
}

void frmOfficeEmployeePersonalExperience::show_employee(std::int32_t employee) {
  employee_ = employee;
  if (const auto object = application_.GetQuorObjectUIO(UserOIDR)) {
    employee_is_known_ = true;
    const quor::Variant start = object->Fields()["UsrAccDate"].Value();
    if (!start.is_null()) dtpDate.set_value(start.to_date());
  }
  const quor::FilterScope scope(rsExperience);
  if (!find_record(employee)) return;
  const quor::Variant date = rsExperience->field("DateExperience");
  if (!date.is_null()) dtpDate.set_value(date.to_date());
  txtYears.set_text(std::to_string(catalogue::null_to_int32(rsExperience->field("ExperienceYears"))));
  txtMonthes.set_text(std::to_string(catalogue::null_to_int32(rsExperience->field("ExperienceMonthes"))));
}

// Stands on the employee's record under the filter that found it; false when there is none. Whatever filter the opener
// has left does not hide it.
bool frmOfficeEmployeePersonalExperience::find_record(std::int32_t employee) {
  if (rsExperience) rsExperience->Filter("");
  return catalogue::filter_test(rsExperience, "UserID = " + catalogue::quoted(std::to_string(employee)));
}

void frmOfficeEmployeePersonalExperience::put_into_record(std::int16_t years, std::int16_t months) {
  const quor::FilterScope scope(rsExperience);
  if (!find_record(employee_)) {
    rsExperience->AddNew();
    rsExperience->set_field("UserID", employee_);
  }
  rsExperience->set_field("DateExperience", dtpDate.value());
  rsExperience->set_field("ExperienceYears", years);
  rsExperience->set_field("ExperienceMonthes", months);
  rsExperience->Update();
}

void frmOfficeEmployeePersonalExperience::show_second_service() {
  const int recorded = whole_number(txtYears.text()) * 12 + whole_number(txtMonthes.text());
  const int passed = quor::months_between(dtpDate.value(), dtpDate2.value());
  const int total = quor::Variant(std::int32_t{recorded + passed}).to_int16();
  const int years = static_cast<int>(quor::int_part(total / 12.0));
  txtYears2.set_text(std::to_string(years));
  txtMonthes2.set_text(std::to_string(total - 12 * years));
}

frmOfficeEmployeePersonalExperience::Inputs frmOfficeEmployeePersonalExperience::inputs() const {
  return {
      .date = dtpDate.value(), .second_date = dtpDate2.value(), .years = txtYears.text(), .months = txtMonthes.text()};
}

void frmOfficeEmployeePersonalExperience::take_back(const Inputs& inputs) {
  dtpDate.set_value(inputs.date);
  dtpDate2.set_value(inputs.second_date);
  put_back(txtYears, inputs.years);
  put_back(txtMonthes, inputs.months);
}

// When nothing can be saved the form only calculates, and its one button closes it.
void frmOfficeEmployeePersonalExperience::set_button_states() {
  const bool can_save = rsExperience && employee_is_known_;
  frameMain.set_caption(can_save ? "Įrašomas tarnybos stažas" : "Turimas tarnybos stažas");
  cmdWrite.set_enabled(can_save);
  cmdWrite.set_visible(can_save);
  cmdCancel.set_caption(can_save ? "Atšaukti" : "Uždaryti");
}

}  // namespace velmora
