#include "forms/categories/category_row_editor.h"

#include "frame/catalogue.h"
#include "frame/numeric_box.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {
constexpr std::int16_t kFactorDecimals = 4;
}

frmOfficeEmployeeCategoryRow::frmOfficeEmployeeCategoryRow(quor::QuorApplication& application)
    : Form("Pareiginės algos koeficientas"), application_(application) {
  make_numeric_box(txtFactor, kFactorDecimals);
  cmdOK.on_click = [this] { write_row(); };
  cmdCancel.on_click = [this] { close(); };
  set_layout(column({field("Galioja nuo", dtpDate), field("Koeficientas", txtFactor), row({cmdOK, cmdCancel})}));
}

void frmOfficeEmployeeCategoryRow::opening() {
  Cancelled = true;
  dtpDate.set_value(application_.Today());
  txtFactor.set_text("1");
  rows_ = catalogue::rows_of(*DataObject);
  if (!RowGUID.empty()) show_row();
}

// A row that is no longer there is entered as a new one.
void frmOfficeEmployeeCategoryRow::show_row() {
  if (!catalogue::find_by_guid(rows_.get(), RowGUID)) {
    RowGUID.clear();
    return;
  }
  txtFactor.set_text(quor::general_text(catalogue::null_to_double(rows_->field("Factor"))));
  const quor::Variant date = rows_->field("DateFrom");
  if (!date.is_null()) dtpDate.set_value(date.to_date());
}

void frmOfficeEmployeeCategoryRow::write_row() {
  // A box that was never left has not been formatted.
  if (!quor::is_numeric(txtFactor.text())) {
    application_.MessageBox("Koeficientas „" + txtFactor.text() + "“ nėra skaičius.", quor::BoxIcon::kExclamation,
                            quor::BoxButtons::kOk, application_.Title());
    return;
  }
  if (rows_) {
    if (RowGUID.empty()) add_row();
    rows_->set_field("DateFrom", dtpDate.value());
    rows_->set_field("Factor", quor::parse_number(txtFactor.text()));
    rows_->Update();
    Cancelled = false;
  }
  close();
}

void frmOfficeEmployeeCategoryRow::add_row() {
  rows_->AddNew();
  rows_->set_field("OfficeEmployeeCategoryGUID", DataObject->Fields()["GUID"].Value());
  rows_->set_field("GUID", DataObject->GetGUID());
}

}  // namespace velmora
