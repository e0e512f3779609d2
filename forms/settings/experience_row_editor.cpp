#include "forms/settings/experience_row_editor.h"

#include "frame/catalogue.h"
#include "frame/numeric_box.h"
#include "platform/data/number_text.h"

namespace velmora {

frmOfficeEmployeeExperience::frmOfficeEmployeeExperience(quor::QuorApplication& application)
    : Form("Priedas už tarnybos stažą"), application_(application) {
  for (quor::TextBox* box : {&txtYearFrom, &txtYearTo, &txtPercentage}) make_numeric_box(*box, 0);
  cmdOK.on_click = [this] { write_row(); };
  cmdCancel.on_click = [this] { cancel(); };
  set_layout(column({field("Stažas nuo (metais)", txtYearFrom), field("Stažas iki (metais)", txtYearTo),
                     field("Priedas, %", txtPercentage), row({cmdOK, cmdCancel})}));
}

void frmOfficeEmployeeExperience::opening() {
  Cancelled = false;
  title_ = application_.Title();
  for (quor::TextBox* box : {&txtYearFrom, &txtYearTo, &txtPercentage}) box->set_text("0");
  rows_ = catalogue::rows_of(*DataObject);
  if (!RowGUID.empty()) show_row();
}

void frmOfficeEmployeeExperience::closing() {
  rows_.reset();
  DataObject.reset();
}

void frmOfficeEmployeeExperience::write_row() {
  const double from = quor::leading_number(txtYearFrom.text());
  const double to = quor::leading_number(txtYearTo.text());
  // A band from 5 to 5 is kept as entered, although no length of service falls into it.
  if (to < from || from == 0.0 || to == 0.0) {
    application_.MessageBox("Nenurodytas laikotarpis!", quor::BoxIcon::kExclamation, quor::BoxButtons::kOk, title_);
    return;
  }
  // A text that does not convert throws here, before anything is written.
  const std::int16_t year_from = quor::Variant(txtYearFrom.text()).to_int16();
  const std::int16_t year_to = quor::Variant(txtYearTo.text()).to_int16();
  const std::int16_t percentage = quor::Variant(txtPercentage.text()).to_int16();
  if (rows_) {
    if (RowGUID.empty()) add_row();
    rows_->set_field("YearFrom", year_from);
    rows_->set_field("YearTo", year_to);
    rows_->set_field("Percentage", percentage);
    rows_->Update();
  }
  close();
}

void frmOfficeEmployeeExperience::cancel() {
  Cancelled = true;
  close();
}

// A band that is no longer there is entered as a new one.
void frmOfficeEmployeeExperience::show_row() {
  if (!catalogue::find_by_guid(rows_.get(), RowGUID)) {
    RowGUID.clear();
    return;
  }
  const auto whole = [this](const char* name) { return std::to_string(catalogue::null_to_int16(rows_->field(name))); };
  txtYearFrom.set_text(whole("YearFrom"));
  txtYearTo.set_text(whole("YearTo"));
  txtPercentage.set_text(whole("Percentage"));
}

void frmOfficeEmployeeExperience::add_row() {
  rows_->AddNew();
  rows_->set_field("GUID", DataObject->GetGUID());
  rows_->set_field("OfficeEmployeeSettingGUID", DataObject->Fields()["GUID"].Value());
}

}  // namespace velmora
