#include "forms/preview/supplement_preview.h"

#include <algorithm>
#include <map>

#include "forms/personal/extra_charges_editor.h"
#include "forms/personal/personal_experience_editor.h"
#include "frame/catalogue.h"
#include "frame/object_types.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {

// The commands of the list.
constexpr char kEditCharges[] = "100";
constexpr char kPlaceOnDeskTop[] = "101";
constexpr char kEditExperience[] = "102";

constexpr quor::CellAlignment kRight = quor::CellAlignment::kRight;
constexpr PreviewColumn kColumns[] = {
    {"Nr", "Eil. Nr.", 0.8, kRight},
    {"Preview", "Pavardė, vardas", 6.5},
    {"ExperienceYears", "Tarnybos stažas", 1.7, kRight},
    {"Category", "Pareigybių kategorija", 4},
    {"RoundedSalary", "Pareiginė alga", 2, kRight},
    {"ExtraChargePercentage", "Priedo procentas", 1.8, kRight, "Percentage"},
    {"ExtraCharge", "Priedo suma", 2, kRight},
};

quor::Date date_of(const quor::Recordset& records, quor::FieldHandle field) {
  return quor::Date::from_serial(records.number(field));
}

}  // namespace

struct frmOfficeEmployeeExtraChargePreview::Filling {
  explicit Filling(const quor::ListView& list)
      : preview(list.column("Preview")),
        years(list.column("ExperienceYears")),
        category(list.column("Category")),
        rounded_salary(list.column("RoundedSalary")),
        percentage(list.column("ExtraChargePercentage")),
        charge(list.column("ExtraCharge")) {}

  const std::size_t preview, years, category, rounded_salary, percentage, charge;  // column numbers
  ByPerson<RecordedService> services;
  ByPerson<ExtraCharge> charges;
  std::map<std::int16_t, double> percentages;  // of the supplement, by years of service
  std::vector<std::string> faults;             // persons whose recorded service is none, each with what is recorded
};

frmOfficeEmployeeExtraChargePreview::frmOfficeEmployeeExtraChargePreview(quor::QuorApplication& application)
    : PreviewForm(application, " Valstybės tarnautojų priedai", kColumns, quor::MenuKey::kNone) {
  lvwRows.on_double_click = [this] { run_action(kEditCharges); };
  mnuOnDeskTop.on_choose = [this] { run_action(kPlaceOnDeskTop); };
  mnuEdit.on_choose = [this] { run_action(kEditCharges); };
  mnuExperience.on_choose = [this] { run_action(kEditExperience); };
}

void frmOfficeEmployeeExtraChargePreview::run_action(const std::string& code) {
  const std::string employee = selected_employee();
  if (employee.empty()) return;
  commands().run([&] {
    if (code == kEditCharges) edit_charges(employee);
    if (code == kPlaceOnDeskTop) place_on_desk_top();
    if (code == kEditExperience) edit_experience(employee);
  });
}

void frmOfficeEmployeeExtraChargePreview::edit_charges(const std::string& employee) {
  frmOfficeEmployeeExtraCharges editor(application());
  editor.QuorObjectUIO = QuorObjectUIO;
  editor.SalaryPersonalOIDR = employee;
  editor.mDate = last_day();
  editor.lblPreview.set_caption(lvwRows.text(*lvwRows.selected(), lvwRows.column("Preview")));
  application().show_modal(editor);
  if (!editor.mCancel) fill_again();
}

void frmOfficeEmployeeExtraChargePreview::edit_experience(const std::string& employee) {
  frmOfficeEmployeePersonalExperience editor(application());
  editor.rsExperience = experience_;
  editor.UserOIDR = employee;
  editor.DatePreview = month().first_day();
  application().show_modal(editor);
  if (!editor.mCancel) fill_again();
}

void frmOfficeEmployeeExtraChargePreview::fill_again() {
  const auto row = lvwRows.selected();
  fill();
  lvwRows.select_row(row);
}

void frmOfficeEmployeeExtraChargePreview::load_records() {
  extra_charges_ = requested("OfficeEmployeeExtraCharges", quor::kNoParameter);
  experience_ = requested("OfficeEmployeeExperience", quor::kNoParameter);
}

void frmOfficeEmployeeExtraChargePreview::release_records() {
  extra_charges_.reset();
  experience_.reset();
}

void frmOfficeEmployeeExtraChargePreview::fill_list() {
  quor::Recordset* rows = preview_rows().get();
  if (rows == nullptr) return;
  lvwRows.reserve(static_cast<std::size_t>(rows->RecordCount()));
  Filling filling(lvwRows);
  gather_services(filling.services);
  gather_charges(filling.charges);
  const quor::FieldHandle user = rows->handle("UserID"), preview = rows->handle("Preview"),
                          category = rows->handle("CategoryName"), salary = rows->handle("RoundedSalary");
  PersonRun persons;
  ListedPerson person;
  for_each_record(rows, [&] {
    const bool first = persons.begins(rows->int32(user));
    if (first) {
      show_charges(person, filling);
      person = {.user = persons.user()};
      count_service(person, rows->text(preview), filling);
    }
    person.rows = counted(person.rows, "vieno asmens eilučių");
    const std::size_t row = add_row(person.user);
    if (first) {
      lvwRows.set_text(row, 0, std::to_string(persons.number()));
      lvwRows.set_text(row, filling.preview, std::string(rows->text(preview)));
      if (person.service_is_known) lvwRows.set_text(row, filling.years, std::to_string(person.service_years));
    }
    lvwRows.set_text(row, filling.category, std::string(rows->text(category)));
    lvwRows.set_text(row, filling.rounded_salary, catalogue::null_to_text(rows->field(salary)));
  });
  show_charges(person, filling);
  tell_faults(filling.faults);
}

// Without a record the years are 0. One that no length of service can have is that person's own fault: the years stay
// blank, and the supplement is 0 %.
void frmOfficeEmployeeExtraChargePreview::count_service(ListedPerson& person, std::string_view name, Filling& filling) {
  const auto service = filling.services.of(person.user);
  if (service.empty()) return;
  try {
    person.service_years = service_years(service.front().record, last_day());
  } catch (const quor::Error& fault) {
    person.service_is_known = false;
    filling.faults.push_back(std::string(name) + ": " + fault.what());
  }
}

// Informs: the list is made all the same.
void frmOfficeEmployeeExtraChargePreview::tell_faults(const std::vector<std::string>& faults) {
  constexpr std::size_t kNamed = 10;
  if (faults.empty()) return;
  std::string text;
  for (std::size_t i = 0; i < std::min(faults.size(), kNamed); ++i) text += (i > 0 ? quor::kLineBreak : "") + faults[i];
  if (faults.size() > kNamed) {
    text += std::string(quor::kLineBreak) + "Ir dar: " + std::to_string(faults.size() - kNamed) + ".";
  }
  application().MessageBox(text, quor::BoxIcon::kInformation, quor::BoxButtons::kOk, application().Title());
}

void frmOfficeEmployeeExtraChargePreview::gather_services(ByPerson<RecordedService>& services) const {
  const quor::Recordset* records = experience_.get();
  if (records == nullptr) return;
  const quor::FieldHandle user = records->handle("UserID"), date = records->handle("DateExperience"),
                          years = records->handle("ExperienceYears"), months = records->handle("ExperienceMonthes");
  for_each_record(experience_.get(), [&] {
    services.add(records->int32(user), {.years = catalogue::null_to_int32(records->field(years)),
                                        .months = catalogue::null_to_int32(records->field(months)),
                                        .reached_on = date_of(*records, date)});
  });
}

// Those that hold on a day of the month. A bound that is null holds on none.
void frmOfficeEmployeeExtraChargePreview::gather_charges(ByPerson<ExtraCharge>& charges) const {
  const quor::Recordset* records = extra_charges_.get();
  if (records == nullptr) return;
  const quor::FieldHandle user = records->handle("PersonalID"), from = records->handle("DateFrom"),
                          to = records->handle("DateTo"), tied = records->handle("SalaryExtraOID"),
                          sum = records->handle("SumA"), percentage = records->handle("Percentage");
  for_each_record(extra_charges_.get(), [&] {
    if (records->is_null(from) || records->is_null(to)) return;
    if (date_of(*records, from) > month().last_day() || date_of(*records, to) < month().first_day()) return;
    charges.add(records->int32(user),
                {records->text(tied) == kEngineType, records->number(sum), records->number(percentage)});
  });
}

// From the person's first row on; what has no row there gets one of its own at the end.
void frmOfficeEmployeeExtraChargePreview::show_charges(const ListedPerson& person, Filling& filling) {
  if (person.user <= 0) return;
  const std::size_t last = lvwRows.row_count() - 1;
  std::size_t at = last + 1 - static_cast<std::size_t>(person.rows);
  const auto salary = salary_in_cell(lvwRows.text(last, filling.rounded_salary));
  double amount = 0;
  for (const auto& [user, charge] : filling.charges.of(person.user)) {
    const double percentage = charge.of_service ? percentage_of_service(person, filling) : charge.percentage;
    amount = charge_amount(charge.sum, percentage, salary, amount);
    const std::size_t row = at < lvwRows.row_count() ? at : add_row(user);
    if (charge.by_percentage()) lvwRows.set_text(row, filling.percentage, quor::general_text(percentage) + "%");
    lvwRows.set_text(row, filling.charge, quor::fixed_text(amount, 2));
    ++at;
  }
}

// Asked once for each length of service: it is the same for everybody, and a failure is then told once. The engine gets
// the held settings themselves and leaves on them the filter that selects the scale.
double frmOfficeEmployeeExtraChargePreview::percentage_of_service(const ListedPerson& person, Filling& filling) {
  if (!person.service_is_known) return 0;
  const auto [entry, is_new] = filling.percentages.try_emplace(person.service_years, 0.0);
  if (!is_new) return entry->second;
  const quor::MethodResult result =
      QuorObjectUIO->Methods("GetPercentageByExperience", {person.service_years, settings()});
  if (result.Code == 0) entry->second = catalogue::null_to_double(result.Value);
  return entry->second;
}

}  // namespace velmora
