#include "forms/categories/category_editor.h"

#include "forms/categories/category_row_editor.h"
#include "frame/object_types.h"
#include "frame/row_dialog.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

// The commands of the factor list.
constexpr char kNewRow[] = "0";
constexpr char kEditRow[] = "1";
constexpr char kDeleteRow[] = "2";

constexpr std::size_t kFactorColumn = 1;

}  // namespace

frmOfficeEmployeeCategories::frmOfficeEmployeeCategories(quor::QuorApplication& application)
    : Form("Pareigybių kategorija"),
      application_(application),
      row_actions_(lvwFactors, {mnuMain, mnuNew, mnuEdit, mnuDelete}, {kNewRow, kEditRow, kDeleteRow},
                   [this](const std::string& action, const std::string& guid) { run_row_action(action, guid); }) {
  txtName.on_change = [this] { mark_changed(); };
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { cancel(); };
  SSCNew.on_click = [this] { start_new_category(); };
  SSCClose.on_click = [this] { close_editor(); };
  set_layout(
      column({SOPanel, field("Pavadinimas", txtName), lvwFactors, row({cmdWrite, cmdCancel, SSCNew, SSCClose})}));
}

void frmOfficeEmployeeCategories::opening() {
  catalogue::query_rights(application_, rights_, kGroupKey);
  title_ = application_.Title();
  cmdWrite.set_caption("Įrašyti");
  cmdCancel.set_caption("Atšaukti");
  fill();
}

void frmOfficeEmployeeCategories::write() {
  QuorObjectUIO->Fields()["Name"].Value(txtName.text());
  const quor::SaveStatus status = QuorObjectUIO->Save(0, "");
  if (status.Failed) {
    application_.MessageBox(status.ErrorText + quor::kLineBreak + "Įrašymas neatliktas!", quor::BoxIcon::kNone,
                            quor::BoxButtons::kOk, title_);
    cancel();
    return;
  }
  application_.open_objects().written(*QuorObjectUIO);
  fill();
}

void frmOfficeEmployeeCategories::cancel() {
  QuorObjectUIO->CancelUpdate();
  fill();
}

void frmOfficeEmployeeCategories::start_new_category() {
  const std::string previous = QuorObjectUIO->OIDR();
  if (!application_.open_objects().may_leave(previous)) return;
  QuorObjectUIO->OIDR("");
  const quor::SaveStatus status = QuorObjectUIO->Read();
  if (status.Failed) {
    QuorObjectUIO->OIDR(previous);
    throw quor::Error(quor::ErrorKind::kRefused, status.ErrorText);
  }
  fill();
  if (!previous.empty()) application_.open_objects().left(previous, *this);
}

void frmOfficeEmployeeCategories::close_editor() {
  application_.run_pending_events();
  close();
}

void frmOfficeEmployeeCategories::run_row_action(const std::string& action, const std::string& guid) {
  if (action == kNewRow || action == kEditRow) edit_row(guid);
  if (action == kDeleteRow) delete_row(guid);
}

void frmOfficeEmployeeCategories::edit_row(const std::string& guid) {
  if (!edit_row_in_dialog<frmOfficeEmployeeCategoryRow>(application_, QuorObjectUIO, guid)) return;
  fill_factors();
  mark_changed();
}

void frmOfficeEmployeeCategories::delete_row(const std::string& guid) {
  if (application_.MessageBox("Ar tikrai norite panaikinti?", quor::BoxIcon::kQuestion, quor::BoxButtons::kYesNo,
                              title_) == quor::BoxAnswer::kNo) {
    return;
  }
  // The filter that finds the row is taken off in every ending.
  const quor::FilterScope scope(catalogue::rows_of(*QuorObjectUIO));
  if (!catalogue::is_true(QuorObjectUIO->Methods("DeleteCategoryRow", {guid}))) return;
  fill_factors();
  mark_changed();
}

void frmOfficeEmployeeCategories::fill() {
  const auto hourglass = application_.hourglass();
  changed_ = false;
  is_new_ = !quor::carries_object(QuorObjectUIO->OIDR());
  if (is_new_) QuorObjectUIO->Fields()["GUID"].Value(QuorObjectUIO->GetGUID());
  txtName.set_text(catalogue::null_to_text(QuorObjectUIO->Fields()["Name"].Value()));
  show_heading();
  fill_factors();
  set_button_states();
}

void frmOfficeEmployeeCategories::fill_factors() {
  const quor::ListView::BulkChange bulk(lvwFactors);
  lvwFactors.clear();
  const auto rows = catalogue::rows_of(*QuorObjectUIO);
  if (!rows) return;
  rows->Filter("");
  if (rows->RecordCount() == 0) return;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    const quor::Variant date = rows->field("DateFrom");
    const std::size_t line =
        lvwFactors.add_row(catalogue::null_to_text(date), catalogue::null_to_text(rows->field("GUID")));
    lvwFactors.set_text(line, kFactorColumn, quor::general_text(catalogue::null_to_double(rows->field("Factor"))));
  }
}

void frmOfficeEmployeeCategories::show_heading() {
  SOPanel.set_caption(is_new_ ? " Nauja pareigybių kategorija" : " Pareigybių kategorija");
}

void frmOfficeEmployeeCategories::mark_changed() {
  changed_ = true;
  set_button_states();
}

void frmOfficeEmployeeCategories::set_button_states() {
  cmdWrite.set_enabled(rights_.may_write() && changed_);
  cmdCancel.set_enabled(!is_new_ && changed_);
  SSCNew.set_enabled(!is_new_ && !cmdWrite.enabled());
}

}  // namespace velmora
