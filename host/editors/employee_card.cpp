#include "host/editors/employee_card.h"

#include <map>

#include "host/editors/employment_end.h"
#include "host/editors/entered_values.h"
#include "host/editors/position_editor.h"
#include "host/editors/service_editor.h"
#include "host/payroll/latest_month.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"
#include "platform/data/quoted_text.h"

namespace quor {

namespace {

// What the business object answers; null after a failure.
std::shared_ptr<Recordset> requested(Application& application, const char* name, const std::string& parameter) {
  const MethodResult result = application.NewMainBO()->RunMethod(name, parameter, 0);
  return result.Code == 0 ? result.Value.record_set() : nullptr;
}

// A menu of a list: the commands about a row need one.
void open_menu(const ListView& list, PopupMenu& menu, std::initializer_list<MenuItem*> about_row) {
  for (MenuItem* const item : about_row) item->set_enabled(list.selected().has_value());
  menu.open();
}

}  // namespace

EmployeeCard::EmployeeCard(Application& application, std::shared_ptr<QuorObjectUIO> card)
    : Form("Darbuotojo kortelė"),
      lvwPositions(*this, "lvwPositions", position_columns()),
      lvwCharges(*this, "lvwCharges", charge_columns()),
      lvwWorkedTime(*this, "lvwWorkedTime", worked_time_columns()),
      lvwPaidHours(*this, "lvwPaidHours", paid_hours_columns()),
      lvwPaidSums(*this, "lvwPaidSums", paid_sums_columns()),
      application_(application),
      card_(std::move(card)),
      month_(Month::of(application.Today())) {
  listen();
  lay_out();
}

void EmployeeCard::listen() {
  lvwPositions.on_right_click = [this] {
    open_menu(lvwPositions, mnuPosition, {&mnuEditPosition, &mnuCopyPosition, &mnuDeletePosition});
  };
  lvwPositions.on_double_click = [this] { edit_position_of(lvwPositions.selected_tag()); };
  mnuNewPosition.on_choose = cmdNewPosition.on_click = [this] { add_position(""); };
  mnuEditPosition.on_choose = lvwPositions.on_double_click;
  mnuCopyPosition.on_choose = cmdCopyPosition.on_click = [this] {
    if (!lvwPositions.selected_tag().empty()) add_position(lvwPositions.selected_tag());
  };
  mnuDeletePosition.on_choose = [this] { delete_position(); };
  cmdEnd.on_click = [this] { end_employment(); };

  lvwCharges.on_right_click = [this] { open_menu(lvwCharges, mnuCharge, {&mnuEditCharge, &mnuDeleteCharge}); };
  lvwCharges.on_double_click = [this] {
    if (!lvwCharges.selected_tag().empty()) ask_card("PersonalExtraCharge", lvwCharges.selected_tag());
  };
  mnuNewCharge.on_choose = cmdNewCharge.on_click = [this] { ask_card("PersonalExtraCharge", ""); };
  mnuEditCharge.on_choose = lvwCharges.on_double_click;
  mnuDeleteCharge.on_choose = [this] { delete_charge(); };
  cmdService.on_click = [this] { edit_service(); };

  for (DatePicker* const picker : {&dtpTimeMonth, &dtpPayMonth}) {
    picker->on_change = [this, picker] { turn_to_month(picker->value()); };
  }
  cmdWrite.on_click = [this] { write(); };
  cmdRefresh.on_click = [this] { refresh(); };
  cmdClose.on_click = [this] { close(); };
}

void EmployeeCard::lay_out() {
  set_layout(column({field("Pavardė, vardas", txtName), field("Padalinys", chcDepartment),
                     field("Tarnybos pradžia", txtServiceBegan), lblPages,
                     pages({page("Pareigybės", {lvwPositions, row({cmdNewPosition, cmdCopyPosition, cmdEnd})}),
                            page("Stažas ir priedai", {lblService, lvwCharges, row({cmdNewCharge, cmdService})}),
                            page("Darbo laikas", {field("Mėnuo", dtpTimeMonth), lvwWorkedTime}),
                            page("Užmokestis", {field("Mėnuo", dtpPayMonth), lblPay, lvwPaidHours, lvwPaidSums})}),
                     row({cmdWrite, cmdRefresh, cmdClose})}));
}

std::string EmployeeCard::subject() const { return employee() ? card_->OIDR() : ""; }

std::optional<std::int32_t> EmployeeCard::employee() const { return id_of_key(card_->OIDR(), kEmployeeType); }

void EmployeeCard::opening() {
  month_ = latest_month(application_.company().database()).value_or(Month::of(application_.Today()));
  dtpTimeMonth.set_value(month_.first_day());
  dtpPayMonth.set_value(month_.first_day());
  cmdWrite.set_enabled(application_.HasRight(UserRight::kWrite, kEmployeeType, 0));
  show_card();
  show_pages();
}

// ---- the card itself

void EmployeeCard::show_card() {
  const Fields fields = card_->Fields();
  txtName.set_text(null_to_text(fields["Preview"].Value()));
  txtServiceBegan.set_text(null_to_text(fields["UsrAccDate"].Value()));
  show_departments(null_to_int32(fields["DepartmentID"].Value()));
  shown_ = shown();
}

// By name, as one looks for it; what stands above tells departments of one name apart.
void EmployeeCard::show_departments(std::int32_t chosen) {
  const auto departments = requested(application_, "GetDepartments", kNoParameter);
  std::map<std::int32_t, std::string> names;
  std::vector<ChoiceBox::Item> items;
  if (departments) {
    for (; !departments->Eof(); departments->MoveNext()) {
      names[null_to_int32(departments->field("ID"))] = null_to_text(departments->field("Name"));
    }
    for (departments->MoveFirst(); !departments->Eof(); departments->MoveNext()) {
      const std::int32_t id = null_to_int32(departments->field("ID"));
      const auto above = names.find(null_to_int32(departments->field("ParentID")));
      items.push_back({names[id] + (above == names.end() ? "" : " (" + above->second + ")"), std::to_string(id)});
    }
  }
  chcDepartment.set_items(std::move(items));
  if (chosen == 0 || !chcDepartment.select_tag(std::to_string(chosen))) chcDepartment.select_item({});
}

std::string EmployeeCard::shown() const {
  return txtName.text() + '\n' + chcDepartment.selected_tag() + '\n' + txtServiceBegan.text();
}

void EmployeeCard::write() {
  if (!move_into_fields()) return;
  const SaveStatus status = card_->Save(0, "");
  if (status.Failed) {
    application_.MessageBox(std::string("Įrašymas neatliktas!") + kLineBreak + status.ErrorText, BoxIcon::kExclamation,
                            BoxButtons::kOk, application_.Title());
    return;
  }
  show_card();
  application_.open_objects().written(*card_);
  show_pages();
}

// Everything is read first: what is refused leaves the fields as they are.
bool EmployeeCard::move_into_fields() {
  EnteredValues entered(application_);
  const std::string name = entered.text(txtName, "Pavardė, vardas");
  if (chcDepartment.selected_tag().empty()) entered.refuse(chcDepartment, "Padalinys: nepasirinktas.");
  const auto began = entered.optional_date(txtServiceBegan, "Tarnybos pradžia");
  if (entered.show_faults()) return false;
  const Fields fields = card_->Fields();
  fields["Preview"].Value(name);
  fields["DepartmentID"].Value(chcDepartment.selected_tag());
  fields["UsrAccDate"].Value(began ? Variant(*began) : Variant(kNull));
  return true;
}

// What others have written; what is typed stays.
void EmployeeCard::refresh() {
  if (employee() && !has_unsaved_changes()) {
    const SaveStatus status = card_->Read();
    if (status.Failed) {
      application_.MessageBox(status.ErrorText, BoxIcon::kExclamation, BoxButtons::kOk, application_.Title());
      return;
    }
    show_card();
  }
  show_pages();
}

// ---- the pages

void EmployeeCard::show_pages() {
  const bool stored = employee().has_value();
  const std::string refusal = application_.guard().view_refusal(kSalaryExtensionType);
  lblPages.set_caption(stored ? refusal : "Pareigybės, stažas ir priedai pildomi įrašius kortelę.");
  lblPages.set_visible(!lblPages.caption().empty());
  enable_pages(stored, refusal.empty());
  if (!stored) return;
  const auto hourglass = application_.hourglass();
  show_person();
  if (!refusal.empty()) return;
  show_positions(lvwPositions.selected_tag());
  show_month();
}

void EmployeeCard::enable_pages(bool stored, bool viewed) {
  const auto enable = [](std::initializer_list<Control*> controls, bool enabled) {
    for (Control* const control : controls) control->set_enabled(enabled);
  };
  enable({&lvwCharges, &cmdNewCharge, &cmdService}, stored);
  enable({&lvwPositions, &dtpTimeMonth, &lvwWorkedTime, &dtpPayMonth, &lvwPaidHours, &lvwPaidSums}, stored && viewed);
  const bool may_write = application_.HasRight(UserRight::kWrite, kSalaryExtensionType, 0);
  enable({&cmdNewPosition, &cmdCopyPosition, &cmdEnd}, stored && viewed && may_write);
}

void EmployeeCard::show_positions(const std::string& select) {
  const Date today = application_.Today();
  quor::show_positions(lvwPositions, positions_of(application_, *employee(), today), today);
  lvwPositions.select_row(lvwPositions.row_tagged(select));
}

// Service and charges.
void EmployeeCard::show_person() {
  const Date today = application_.Today();
  std::string service = "Tarnybos stažas neįrašytas.";
  if (const auto services = requested(application_, "GetOfficeEmployeeExperience", kNoParameter);
      services && find_service(*services, *employee())) {
    const Variant date = services->field("DateExperience");
    const std::int64_t recorded = std::int64_t{null_to_int32(services->field("ExperienceYears"))} * 12 +
                                  null_to_int32(services->field("ExperienceMonthes"));
    const std::int64_t months = date.is_null() ? recorded : recorded + months_between(date.to_date(), today);
    service = "Tarnybos stažas " + date_text(today) + ": " + std::to_string(months / 12) + " m. " +
              std::to_string(months % 12) + " mėn. (įrašyta " + null_to_text(date) + ").";
  }
  lblService.set_caption(service);
  const std::string selected = lvwCharges.selected_tag();
  const auto charges = requested(application_, "GetPersonalExtraCharges", quoted(card_->OIDR()));
  const auto codes = requested(application_, "GetSalaryCodes", kNoParameter);
  show_charges(lvwCharges, charges.get(), codes.get(), today);
  lvwCharges.select_row(lvwCharges.row_tagged(selected));
}

void EmployeeCard::show_month() {
  const PersonMonth found = person_month(application_, *employee(), month_);
  show_worked_time(lvwWorkedTime, found.worked, month_);
  show_paid_hours(lvwPaidHours, found.pay);
  show_paid_sums(lvwPaidSums, found.pay);
  lblPay.set_caption(month_.text() + (found.pay.closed ? ": mėnuo uždarytas." : ": mėnuo atviras.") +
                     (found.pay.has_document ? "" : " Užmokestis neapskaičiuotas."));
}

void EmployeeCard::turn_to_month(Date day) {
  month_ = Month::of(day);
  dtpTimeMonth.set_value(month_.first_day());
  dtpPayMonth.set_value(month_.first_day());
  if (employee()) show_month();
}

// ---- positions

void EmployeeCard::edit_position_of(const std::string& key) {
  if (key.empty()) return;
  const auto position = application_.GetQuorObjectUIO(key);
  if (!position) return show_positions("");
  if (edit_position(application_, *position)) positions_changed(key);
}

void EmployeeCard::add_position(const std::string& like) {
  const auto position = new_position(application_, *employee(), like);
  if (position && edit_position(application_, *position)) positions_changed(position->OIDR());
}

void EmployeeCard::delete_position() {
  const std::string key = lvwPositions.selected_tag();
  if (key.empty() || !agreed_to_delete()) return;
  if (!application_.NewMainBO()->DeleteQuorObject(key)) positions_changed(key);
}

void EmployeeCard::positions_changed(const std::string& key) {
  show_positions(key);
  application_.open_objects().wrote(key);
}

void EmployeeCard::end_employment() {
  EmploymentEnd dialog(application_, *employee());
  application_.show_modal(dialog);
  if (!dialog.ended()) return;
  show_person();
  positions_changed(lvwPositions.row_count() > 0 ? lvwPositions.tag(0) : kSalaryExtensionType);
}

// ---- service and charges

void EmployeeCard::edit_service() {
  const auto services = requested(application_, "GetOfficeEmployeeExperience", kNoParameter);
  if (!services) return;
  ServiceEditor editor(application_, *employee(), services, txtServiceBegan.text());
  application_.show_modal(editor);
  if (editor.stored()) show_person();
}

void EmployeeCard::ask_card(const char* method, const std::string& guid) {
  const Variant done = card_->Methods(method, {guid}).Value;
  if (!done.is_null() && done.to_bool()) show_person();
}

void EmployeeCard::delete_charge() {
  if (!lvwCharges.selected_tag().empty() && agreed_to_delete()) {
    ask_card("DeletePersonalExtraCharge", lvwCharges.selected_tag());
  }
}

bool EmployeeCard::agreed_to_delete() {
  return application_.MessageBox("Ar tikrai norite panaikinti?", BoxIcon::kQuestion, BoxButtons::kYesNo,
                                 application_.Title()) == BoxAnswer::kYes;
}

std::shared_ptr<Form> open_employee_card(Application& application, const std::string& object) {
  const int shown = static_cast<int>(application.shown_boxes().size());
  auto card = application.GetQuorObjectUIO(object);
  if (card) return std::make_shared<EmployeeCard>(application, std::move(card));
  if (static_cast<int>(application.shown_boxes().size()) == shown) {
    application.MessageBox("Darbuotojo nebėra: jį panaikino kitas vartotojas.", BoxIcon::kExclamation, BoxButtons::kOk,
                           application.Title());
  }
  return nullptr;
}

}  // namespace quor
