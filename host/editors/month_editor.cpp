#include "host/editors/month_editor.h"

#include "host/company/month_keys.h"
#include "host/company/rights.h"
#include "host/editors/department_choice.h"
#include "host/editors/reason_dialog.h"
#include "host/editors/watched_work.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/last_calculation.h"
#include "host/payroll/latest_month.h"
#include "host/payroll/month_state.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

namespace {

std::string summary_of(const CalculatedMonth& calculated) {
  return std::string(calculated.cancelled ? "Nutraukta. " : "") +
         "Apskaičiuota žmonių: " + std::to_string(calculated.done) + " iš " + std::to_string(calculated.all) +
         "; pakeista dokumentų: " + std::to_string(calculated.changed) +
         "; viršija ribą: " + std::to_string(calculated.over_limit) +
         "; klaidų: " + std::to_string(calculated.faults.size()) + ".";
}

Month month_before(const Month& month) { return Month::of(add_days(month.first_day(), -1)); }

}  // namespace

MonthEditor::MonthEditor(Application& application, const Month& month)
    : Form("Mėnuo"), application_(application), month_(month) {
  chcShow.on_change = [this] { show_rows(); };
  chcDepartment.on_change = [this] {
    read();
    show_rows();
    enable_commands();
  };
  cmdCalculate.on_click = [this] { calculate({}); };
  cmdCalculateDepartment.on_click = [this] { calculate({.department = chosen_department()}); };
  cmdCalculateChosen.on_click = [this] { calculate_chosen(); };
  cmdClose.on_click = [this] { close_month_of_form(); };
  cmdReopen.on_click = [this] { reopen(); };
  cmdPrint.on_click = [this] { print(); };
  set_layout(column({pnlMonth, lblState, lblSummary, row({field("Rodyti", chcShow), field("Padalinys", chcDepartment)}),
                     pages({page("Žmonės", {lvwPeople}), page("Padaliniai", {lvwDepartments}),
                            page("Palyginimas su ankstesniu mėnesiu", {lvwDifferences}), page("Metų fondas", {chtFund}),
                            page("Uždarymai", {lvwHistory})}),
                     row({cmdCalculate, cmdCalculateDepartment, cmdCalculateChosen, cmdClose, cmdReopen, cmdPrint})}));
}

std::string MonthEditor::subject() const { return key_of_month(kMonthType, month_); }

void MonthEditor::opening() {
  pnlMonth.set_caption(month_.text());
  changed_.clear();
  show_choices();
  read();
  read_fund();
  show_state();
  show_rows();
}

// ---- what the user does

void MonthEditor::calculate(const MonthOptions& whom) {
  CalculatedMonth calculated;
  {
    const auto work = application_.begin_work("Skaičiuojamas mėnuo " + month_.text());
    calculated = calculate_month(application_, month_, watched(*work, whom));
  }
  changed_ = {calculated.changed_people.begin(), calculated.changed_people.end()};
  lblSummary.set_caption(summary_of(calculated));
  application_.open_objects().wrote(subject());
  read();
  read_fund();
  show_state();
  show_rows();
}

void MonthEditor::calculate_chosen() {
  const std::vector<std::int32_t> people = checked_people();
  if (people.empty()) return say("Nepažymėtas nė vienas žmogus: pažymėkite langelius prie pavardžių.");
  calculate({.people = people});
}

// What speaks against it is listed; whoever gives a reason closes it all the same.
void MonthEditor::close_month_of_form() {
  try {
    const auto work = application_.begin_work("Tikrinama, ar mėnesį " + month_.text() + " galima uždaryti");
    close_month(application_, month_, {}, watched(*work));
  } catch (const MonthNotReady& against) {
    ReasonDialog dialog(application_, "Uždaryti nepaisant", against.what());
    application_.show_modal(dialog);
    if (!dialog.reason()) return;
    close_month(application_, month_, *dialog.reason());
  }
  application_.open_objects().wrote(subject());
  show_state();
}

void MonthEditor::reopen() {
  ReasonDialog dialog(application_, "Atverti uždarytą mėnesį", "");
  application_.show_modal(dialog);
  if (!dialog.reason()) return;
  reopen_month(application_, month_, *dialog.reason());
  application_.open_objects().wrote(subject());
  show_state();
}

// The people as they are shown.
void MonthEditor::print() {
  const auto report = application_.NewListReport("Darbo užmokestis", kSalaryExtensionType);
  report->AddHeading(month_.text());
  if (chosen_department()) report->AddHeading(chcDepartment.selected_text());
  if (chcShow.selected().value_or(0) > 0) report->AddHeading(chcShow.selected_text());
  const auto& columns = lvwPeople.columns();
  for (std::size_t i = 0; i < columns.size(); ++i) {
    report->AddColumn(std::to_string(i), columns[i].caption, 0, columns[i].alignment);
  }
  for (std::size_t row = 0; row < lvwPeople.row_count(); ++row) {
    report->AddLine();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      report->SetCell(std::to_string(i), lvwPeople.text(row, i), lvwPeople.colour(row, i));
    }
  }
  report->Show();
}

// ---- what is shown

void MonthEditor::show_choices() {
  if (!chcShow.selected()) {
    chcShow.set_items({{"Visi"}, {"Tik klaidos"}, {"Virš ribos"}, {"Pasikeitę po paskutinio skaičiavimo"}});
    chcShow.select_item(0);
  }
  offer_departments(application_, chcDepartment);
}

std::optional<std::int32_t> MonthEditor::chosen_department() const {
  return id_of_key(chcDepartment.selected_tag(), kDepartmentType);
}

void MonthEditor::read() {
  const auto department = chosen_department();
  people_ = pay_of_month(application_, month_, department);
  show_departments(lvwDepartments, people_);
  show_differences(lvwDifferences,
                   pay_differences(pay_of_month(application_, month_before(month_), department), people_));
}

// Of everybody, whichever department is chosen.
void MonthEditor::read_fund() {
  const int year = month_.first_day().year();
  chtFund.set_data(fund_chart(year, fund_of_year(application_, year)));
}

void MonthEditor::show_rows() {
  show_people(lvwPeople, people_, static_cast<MonthShow>(chcShow.selected().value_or(0)), changed_);
}

void MonthEditor::show_state() {
  MonthState state{.month = month_};
  {
    const auto work =
        application_.begin_work("Tikrinama, ar mėnuo " + month_.text() + " apskaičiuotas pagal šios dienos duomenis");
    state = month_state(application_, month_, watched(*work));
  }
  const std::string line = month_state_line(state);
  const std::string at = last_calculated(application_.company().database(), month_);
  lblState.set_caption((line.empty() ? month_.text() + ": apskaičiuotas pagal dabartinius duomenis" : line) +
                       (at.empty() ? "" : " (visi skaičiuoti " + at + ")"));
  closed_ = state.closed.has_value();
  enable_commands();
  show_history();
}

void MonthEditor::enable_commands() {
  const bool may_calculate = !closed_ && application_.HasRight(UserRight::kWrite, kSalaryExtensionType, 0);
  cmdCalculate.set_enabled(may_calculate);
  cmdCalculateDepartment.set_enabled(may_calculate && chosen_department());
  cmdCalculateChosen.set_enabled(may_calculate);
  const bool administrator = may_administer(application_.company(), application_.user());
  cmdClose.set_enabled(administrator && !closed_);
  cmdReopen.set_enabled(administrator && closed_);
}

void MonthEditor::show_history() {
  const ListView::BulkChange bulk(lvwHistory);
  lvwHistory.clear();
  for (const MonthClosing& closing : closings_of(application_.company().database(), month_)) {
    const std::size_t row = lvwHistory.add_row(closing.at);
    lvwHistory.set_text(row, 1, closing.closed ? "uždarytas" : "atvertas");
    lvwHistory.set_text(row, 2, closing.by);
    lvwHistory.set_text(row, 3, closing.reason);
  }
}

std::vector<std::int32_t> MonthEditor::checked_people() const {
  std::vector<std::int32_t> people;
  for (std::size_t row = 0; row < lvwPeople.row_count(); ++row) {
    if (!lvwPeople.checked(row)) continue;
    if (const auto employee = id_of_key(lvwPeople.tag(row))) people.push_back(*employee);
  }
  return people;
}

void MonthEditor::say(const std::string& text) {
  application_.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application_.Title());
}

void delete_month(Application& application, const std::string& key) {
  delete_documents_of(application, month_of_key(key, kMonthType));
}

std::shared_ptr<Form> month_editor(Application& application, const std::string& object) {
  if (carries_object(object)) return std::make_shared<MonthEditor>(application, month_of_key(object, kMonthType));
  const auto latest = latest_month(application.company().database());
  const Month next = latest ? Month::of(add_days(latest->last_day(), 1)) : Month::of(application.Today());
  return std::make_shared<MonthEditor>(application, next);
}

}  // namespace quor
