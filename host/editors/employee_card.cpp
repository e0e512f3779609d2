#include "host/editors/employee_card.h"

#include <map>

#include "host/company/month_keys.h"
#include "host/editors/chart_windows.h"
#include "host/editors/employment_end.h"
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
    : RecordForm("Darbuotojo kortelė", application, std::move(card)),
      lvwPositions(*this, "lvwPositions", position_columns()),
      lvwCharges(*this, "lvwCharges", charge_columns()),
      lvwWorkedTime(*this, "lvwWorkedTime", worked_time_columns()),
      lvwPaidHours(*this, "lvwPaidHours", paid_hours_columns()),
      lvwPaidSums(*this, "lvwPaidSums", paid_sums_columns()),
      month_(Month::of(application.Today())) {
  listen();
  lay_out();
}

void EmployeeCard::listen() {
  lvwPositions.on_right_click = [this] {
    open_menu(lvwPositions, mnuPosition, {&mnuEditPosition, &mnuCopyPosition, &mnuDeletePosition});
  };
  lvwPositions.on_select = [this] { enable_copy(); };
  lvwPositions.on_double_click = [this] { edit_position_of(lvwPositions.selected_tag()); };
  mnuNewPosition.on_choose = cmdNewPosition.on_click = [this] { add_position(""); };
  mnuEditPosition.on_choose = lvwPositions.on_double_click;
  mnuCopyPosition.on_choose = cmdCopyPosition.on_click = [this] { add_position(lvwPositions.selected_tag()); };
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
  lvwWorkedTime.on_double_click = [this] { application().open_object(key_of_month(kWorkedTimeType, month_)); };

  for (DatePicker* const picker : {&dtpTimeMonth, &dtpPayMonth}) {
    picker->on_change = [this, picker] { turn_to_month(picker->value()); };
  }
  txtName.on_change = chcDepartment.on_change = txtServiceBegan.on_change = [this] { changed(); };
  cmdRefresh.on_click = [this] { refresh(); };
}

void EmployeeCard::lay_out() {
  set_layout(column({field("Pavardė, vardas", txtName), field("Padalinys", chcDepartment),
                     field("Tarnybos pradžia", txtServiceBegan), lblPages,
                     pages({page("Pareigybės", {lvwPositions, row({cmdNewPosition, cmdCopyPosition, cmdEnd})}),
                            page("Stažas ir priedai", {lblService, lvwCharges, row({cmdNewCharge, cmdService})}),
                            page("Darbo laikas", {field("Mėnuo", dtpTimeMonth), lvwWorkedTime}),
                            page("Užmokestis", {field("Mėnuo", dtpPayMonth), lblPay, lvwPaidHours, lvwPaidSums}),
                            page("Diagrama", {chtPay})}),
                     row({cmdWrite, cmdCancel, cmdRefresh, cmdClose})}));
}

std::optional<std::int32_t> EmployeeCard::employee() const { return id_of_key(record().OIDR(), kEmployeeType); }

void EmployeeCard::opening() {
  month_ = latest_month(application().company().database()).value_or(Month::of(application().Today()));
  dtpTimeMonth.set_value(month_.first_day());
  dtpPayMonth.set_value(month_.first_day());
  RecordForm::opening();
}

// ---- the card itself

void EmployeeCard::show_record(bool may_write) {
  may_write_ = may_write;
  show_card();
  show_pages();
}

void EmployeeCard::show_card() {
  const Fields fields = record().Fields();
  txtName.set_text(null_to_text(fields["Preview"].Value()));
  txtServiceBegan.set_text(null_to_text(fields["UsrAccDate"].Value()));
  for (TextBox* const box : {&txtName, &txtServiceBegan}) box->set_read_only(!may_write_);
  chcDepartment.set_enabled(may_write_);
  show_departments(null_to_int32(fields["DepartmentID"].Value()));
}

// By name, as one looks for it; what stands above tells departments of one name apart.
void EmployeeCard::show_departments(std::int32_t chosen) {
  const auto departments = requested(application(), "GetDepartments", kNoParameter);
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

bool EmployeeCard::take(EnteredValues& entered) {
  const std::string name = entered.text(txtName, "Pavardė, vardas");
  if (chcDepartment.selected_tag().empty()) entered.refuse(chcDepartment, "Padalinys: nepasirinktas.");
  const auto began = entered.optional_date(txtServiceBegan, "Tarnybos pradžia");
  if (entered.show_faults()) return false;
  const Fields fields = record().Fields();
  fields["Preview"].Value(name);
  fields["DepartmentID"].Value(chcDepartment.selected_tag());
  fields["UsrAccDate"].Value(began ? Variant(*began) : Variant(kNull));
  return true;
}

// What others have written; what is typed stays.
void EmployeeCard::refresh() {
  if (employee() && !has_unsaved_changes()) {
    const SaveStatus status = record().Read();
    if (status.Failed) {
      application().MessageBox(status.ErrorText, BoxIcon::kExclamation, BoxButtons::kOk, application().Title());
      return;
    }
    show_card();
  }
  show_pages();
}

// ---- the pages

void EmployeeCard::show_pages() {
  const bool stored = employee().has_value();
  const std::string refusal = application().guard().view_refusal(kSalaryExtensionType);
  lblPages.set_caption(stored ? refusal : "Pareigybės, stažas ir priedai pildomi įrašius kortelę.");
  lblPages.set_visible(!lblPages.caption().empty());
  enable_pages(stored, refusal.empty());
  if (!stored) return;
  const auto hourglass = application().hourglass();
  show_person();
  if (!refusal.empty()) return;
  show_positions(lvwPositions.selected_tag());
  show_month();
  chtPay.set_data(person_pay_data(application(), *employee(), txtName.text()));
}

void EmployeeCard::enable_pages(bool stored, bool viewed) {
  const auto enable = [](std::initializer_list<Control*> controls, bool enabled) {
    for (Control* const control : controls) control->set_enabled(enabled);
  };
  enable({&lvwCharges, &cmdNewCharge, &cmdService}, stored);
  enable({&lvwPositions, &dtpTimeMonth, &lvwWorkedTime, &dtpPayMonth, &lvwPaidHours, &lvwPaidSums}, stored && viewed);
  const bool may_write = application().HasRight(UserRight::kWrite, kSalaryExtensionType, 0);
  enable({&cmdNewPosition, &cmdEnd}, stored && viewed && may_write);
  enable_copy();
}

void EmployeeCard::enable_copy() { cmdCopyPosition.set_enabled(cmdNewPosition.enabled() && lvwPositions.selected()); }

void EmployeeCard::show_positions(const std::string& select) {
  const Date today = application().Today();
  quor::show_positions(lvwPositions, positions_of(application(), *employee(), today), today);
  lvwPositions.select_row(lvwPositions.row_tagged(select));
  enable_copy();
}

// Service and charges.
void EmployeeCard::show_person() {
  const Date today = application().Today();
  std::string service = "Tarnybos stažas neįrašytas.";
  if (const auto services = requested(application(), "GetOfficeEmployeeExperience", kNoParameter);
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
  const auto charges = requested(application(), "GetPersonalExtraCharges", quoted(record().OIDR()));
  const auto codes = requested(application(), "GetSalaryCodes", kNoParameter);
  show_charges(lvwCharges, charges.get(), codes.get(), today);
  lvwCharges.select_row(lvwCharges.row_tagged(selected));
}

void EmployeeCard::show_month() {
  const MonthOfPerson found = month_of_person(application(), *employee(), month_);
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
  const auto position = application().GetQuorObjectUIO(key);
  if (!position) return show_positions("");
  if (edit_position(application(), *position)) positions_changed(key);
}

void EmployeeCard::add_position(const std::string& like) {
  const auto position = new_position(application(), *employee(), like);
  if (!position) return show_positions("");  // the one that was to be copied is gone
  if (edit_position(application(), *position)) positions_changed(position->OIDR());
}

void EmployeeCard::delete_position() {
  const std::string key = lvwPositions.selected_tag();
  if (key.empty() || !agreed_to_delete()) return;
  if (!application().NewMainBO()->DeleteQuorObject(key)) positions_changed(key);
}

void EmployeeCard::positions_changed(const std::string& key) {
  show_positions(key);
  application().open_objects().wrote(key);
}

void EmployeeCard::end_employment() {
  EmploymentEnd dialog(application(), *employee());
  application().show_modal(dialog);
  if (!dialog.ended()) return;
  show_person();
  positions_changed(lvwPositions.row_count() > 0 ? lvwPositions.tag(0) : kSalaryExtensionType);
}

// ---- service and charges

void EmployeeCard::edit_service() {
  const auto services = requested(application(), "GetOfficeEmployeeExperience", kNoParameter);
  if (!services) return;
  ServiceEditor editor(application(), *employee(), services, txtServiceBegan.text());
  application().show_modal(editor);
  if (editor.stored()) show_person();
}

void EmployeeCard::ask_card(const char* method, const std::string& guid) {
  const auto person = application().GetQuorObjectUIO(record().OIDR());
  if (!person) return;
  const Variant done = person->Methods(method, {guid}).Value;
  if (!done.is_null() && done.to_bool()) show_person();
}

void EmployeeCard::delete_charge() {
  if (!lvwCharges.selected_tag().empty() && agreed_to_delete()) {
    ask_card("DeletePersonalExtraCharge", lvwCharges.selected_tag());
  }
}

bool EmployeeCard::agreed_to_delete() {
  return application().MessageBox("Ar tikrai norite panaikinti?", BoxIcon::kQuestion, BoxButtons::kYesNo,
                                  application().Title()) == BoxAnswer::kYes;
}

std::shared_ptr<Form> open_employee_card(Application& application, const std::string& object) {
  auto card = read_record(application, object);
  if (card) return std::make_shared<EmployeeCard>(application, std::move(card));
  const auto id = id_of_key(object);
  const auto row = application.company().database().read("SELECT id FROM employees WHERE id = :p0",
                                                         {{"ID", FieldType::kInt32}}, {id.value_or(0)});
  if (id && row->RecordCount() == 0) {
    application.MessageBox("Darbuotojo nebėra: jį panaikino kitas vartotojas.", BoxIcon::kExclamation, BoxButtons::kOk,
                           application.Title());
  }
  return nullptr;
}

}  // namespace quor
