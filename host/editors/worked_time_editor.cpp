#include "host/editors/worked_time_editor.h"

#include <algorithm>
#include <limits>

#include "host/company/month_keys.h"
#include "host/editors/department_choice.h"
#include "host/store/object_codes.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr int kHoursWidth = 62, kDayWidth = 40;
const char* const kDayNames[] = {"Pr", "An", "Tr", "Kt", "Pn", "Š", "S"};

std::string hours_text(double hours) { return hours == 0 ? "" : general_text(hours); }

// Serial day 2 was a Monday.
const char* day_name(Date date) { return kDayNames[(static_cast<int>(date.serial()) - 2) % 7]; }

}  // namespace

WorkedTimeEditor::WorkedTimeEditor(Application& application, const Month& month)
    : Form("Darbo laikas"), application_(application), month_(month) {
  chcDepartment.on_change = [this] { show_people(); };
  chcShape.on_change = [this] {
    show_columns();
    show_people();
  };
  grdTime.on_enter = [this](std::size_t row, std::size_t column, std::string& text) {
    return check(row, column, text);
  };
  grdTime.on_change = [this](const std::vector<std::size_t>& rows) { take_over(rows); };
  cmdFillAll.on_click = [this] { fill_norm(false); };
  cmdFillChosen.on_click = [this] { fill_norm(true); };
  cmdWrite.on_click = [this] { write(); };
  set_layout(column({pnlMonth, lblState, row({field("Rodyti", chcShape), field("Padalinys", chcDepartment)}), grdTime,
                     lblTotals, row({cmdFillAll, cmdFillChosen, cmdWrite})}));
}

std::string WorkedTimeEditor::subject() const { return key_of_month(kWorkedTimeType, month_); }

void WorkedTimeEditor::opening() {
  pnlMonth.set_caption(month_.text());
  read();
  show_choices();
  show_columns();
  show_people();
}

// ---- what the user does

void WorkedTimeEditor::write() {
  std::vector<TimeChange> changes;
  for (const auto& [place, hours] : stored_) {
    const auto now = hours_.find(place);
    if (now == hours_.end()) changes.push_back({place, hours, {}});
    if (now != hours_.end() && now->second != hours) changes.push_back({place, hours, now->second});
  }
  for (const auto& [place, hours] : hours_) {
    if (!stored_.contains(place)) changes.push_back({place, {}, hours});
  }
  write_month_time(application_, month_, changes);
  read();
  show_people();
  application_.open_objects().wrote(subject());
}

// Everybody who has no hours of the basic code yet; the chosen whatever they have.
void WorkedTimeEditor::fill_norm(bool chosen) {
  const GridRange& range = grdTime.range();
  std::vector<Grid::Entry> entries;
  for (std::size_t row = 0; row < grdTime.row_count(); ++row) {
    if (chosen && (row < range.first_row || row > range.last_row)) continue;
    for (std::size_t column = 0; column < grdTime.columns().size(); ++column) {
      const auto at = place(row, column);
      if (!at || at->code != time_.basic_code || !grdTime.may_edit(row, column)) continue;
      if (chosen || grdTime.text(row, column).empty()) entries.push_back({row, column, general_text(time_.norm)});
    }
  }
  const std::string refusal = grdTime.enter_all(std::move(entries));
  if (!refusal.empty()) throw Error(ErrorKind::kRefused, refusal);
}

std::string WorkedTimeEditor::check(std::size_t /*row*/, std::size_t /*column*/, std::string& text) const {
  const bool blank = text.find_first_not_of(" \t\r\n") == std::string::npos;
  if (blank) {
    text.clear();
    return "";
  }
  if (!is_numeric(text)) return "valandos turi būti skaičius.";
  const double hours = parse_number(text);
  const NumberRange& range = by_days() ? kHoursOfDay : kHoursOfMonth;
  if (!range.holds(hours)) return "leidžiama " + range.text() + " valandų.";
  text = general_text(hours);
  return "";
}

void WorkedTimeEditor::take_over(const std::vector<std::size_t>& rows) {
  for (const std::size_t row : rows) {
    for (std::size_t column = 0; column < grdTime.columns().size(); ++column) {
      const auto at = place(row, column);
      if (!at || !grdTime.may_edit(row, column)) continue;
      const std::string& text = grdTime.text(row, column);
      if (text.empty()) {
        hours_.erase(*at);
      } else {
        hours_[*at] = parse_number(text);
      }
    }
    show_row(row);
  }
  show_totals();
}

// ---- what is shown

void WorkedTimeEditor::read() {
  time_ = read_month_time(application_, month_);
  stored_.clear();
  for (const TimeHours& each : time_.hours) stored_[each.place] = each.hours;
  hours_ = stored_;
  const bool may_write = application_.HasRight(UserRight::kWrite, kSalaryExtensionType, 0);
  lblState.set_caption(std::string("Mėnesio norma: ") + general_text(time_.norm) + " val." +
                       (time_.closed ? " Mėnuo uždarytas: laiko keisti negalima." : ""));
  grdTime.set_read_only(time_.closed || !may_write);
  cmdWrite.set_enabled(!grdTime.read_only());
}

void WorkedTimeEditor::show_choices() {
  std::vector<ChoiceBox::Item> shapes = {{"Visi kodai, visas mėnuo", ""}};
  for (const TimeCode& code : time_.codes) {
    shapes.push_back({"Dienomis: " + code.code + " " + code.name, std::to_string(code.id)});
  }
  chcShape.set_items(std::move(shapes));
  if (!chcShape.selected()) chcShape.select_item(0);
  offer_departments(application_, chcDepartment);
}

void WorkedTimeEditor::show_columns() {
  const std::string& code = chcShape.selected_tag();
  day_code_ = code.empty() ? 0 : std::stoi(code);
  std::vector<GridColumn> columns;
  if (by_days()) {
    for (int day = 1; day <= month_.last_day().day(); ++day) {
      columns.push_back({std::to_string(day) + "\n" + day_name(add_days(month_.first_day(), day - 1)), kDayWidth});
    }
    columns.push_back({"Mėnesiui", kHoursWidth, CellAlignment::kRight, true});
  } else {
    for (const TimeCode& each : time_.codes) columns.push_back({each.code, kHoursWidth});
  }
  columns.push_back({"Iš viso", kHoursWidth, CellAlignment::kRight, true});
  grdTime.set_columns(std::move(columns));
  const bool fills = !by_days() && time_.basic_code != 0 && !grdTime.read_only();
  cmdFillAll.set_enabled(fills);
  cmdFillChosen.set_enabled(fills);
}

void WorkedTimeEditor::show_people() {
  const auto department = id_of_key(chcDepartment.selected_tag(), kDepartmentType);
  shown_ = department ? read_month_time(application_, month_, department).people : time_.people;
  const Grid::BulkChange bulk(grdTime);
  grdTime.clear();
  for (const TimePerson& person : shown_) {
    show_row(grdTime.add_row(person.name, object_key(kEmployeeType, person.employee)));
  }
  show_totals();
}

void WorkedTimeEditor::show_row(std::size_t row) {
  const std::int32_t employee = employee_of(row);
  by_days() ? show_days(row, employee) : show_codes(row, employee);
}

// What is entered by days is shown here and changed there.
void WorkedTimeEditor::show_codes(std::size_t row, std::int32_t employee) {
  for (std::size_t column = 0; column < time_.codes.size(); ++column) {
    const std::int32_t code = time_.codes[column].id;
    const double days = of_days(employee, code), hours = days + of_month(employee, code);
    if (days != 0) grdTime.lock_cell(row, column);
    const bool entered = hours_.contains({employee, code, 0});
    grdTime.set_text(row, column, entered || days != 0 ? general_text(hours) : "");
    const CellColour usual = days != 0 ? CellColour::kGreyText : CellColour::kNormal;
    grdTime.set_colour(row, column, hours > time_.norm ? CellColour::kRed : usual);
  }
  show_sum(row, time_.codes.size(), of_all(employee));
}

// And what is entered for the month, likewise.
void WorkedTimeEditor::show_days(std::size_t row, std::int32_t employee) {
  const auto days = static_cast<std::size_t>(month_.last_day().day());
  const bool of_whole_month = hours_.contains({employee, day_code_, 0});
  for (std::size_t column = 0; column < days; ++column) {
    const auto found = hours_.find({employee, day_code_, static_cast<int>(column) + 1});
    grdTime.set_text(row, column, found == hours_.end() ? "" : general_text(found->second));
    if (of_whole_month) grdTime.lock_cell(row, column);
  }
  grdTime.set_text(row, days, of_whole_month ? general_text(of_month(employee, day_code_)) : "");
  show_sum(row, days + 1, of_days(employee, day_code_) + of_month(employee, day_code_));
}

void WorkedTimeEditor::show_sum(std::size_t row, std::size_t column, double hours) {
  grdTime.set_text(row, column, hours_text(hours));
  grdTime.set_colour(row, column, hours > time_.norm ? CellColour::kRed : CellColour::kNormal);
}

void WorkedTimeEditor::show_totals() {
  double all = 0;
  int over = 0;
  for (const TimePerson& person : shown_) {
    const double hours = of_all(person.employee);
    all += hours;
    over += hours > time_.norm ? 1 : 0;
  }
  lblTotals.set_caption("Žmonių: " + std::to_string(shown_.size()) + "; valandų: " + general_text(round_even(all, 6)) +
                        "; viršija normą: " + std::to_string(over) + ".");
}

// ---- hours and their places

std::optional<TimePlace> WorkedTimeEditor::place(std::size_t row, std::size_t column) const {
  if (by_days()) {
    if (column >= static_cast<std::size_t>(month_.last_day().day())) return {};
    return TimePlace{employee_of(row), day_code_, static_cast<int>(column) + 1};
  }
  if (column >= time_.codes.size()) return {};
  return TimePlace{employee_of(row), time_.codes[column].id, 0};
}

std::int32_t WorkedTimeEditor::employee_of(std::size_t row) const { return shown_.at(row).employee; }

double WorkedTimeEditor::of_month(std::int32_t employee, std::int32_t code) const {
  const auto found = hours_.find({employee, code, 0});
  return found == hours_.end() ? 0 : found->second;
}

double WorkedTimeEditor::of_days(std::int32_t employee, std::int32_t code) const {
  double sum = 0;
  const auto end = hours_.lower_bound({employee, code + 1, 0});
  for (auto each = hours_.lower_bound({employee, code, 1}); each != end; ++each) sum += each->second;
  return round_even(sum, 6);
}

double WorkedTimeEditor::of_all(std::int32_t employee) const {
  double sum = 0;
  const auto end = hours_.lower_bound({employee + 1, std::numeric_limits<std::int32_t>::min(), 0});
  for (auto each = hours_.lower_bound({employee, std::numeric_limits<std::int32_t>::min(), 0}); each != end; ++each) {
    sum += each->second;
  }
  return round_even(sum, 6);
}

std::shared_ptr<Form> worked_time_editor(Application& application, const std::string& object) {
  if (carries_object(object))
    return std::make_shared<WorkedTimeEditor>(application, month_of_key(object, kWorkedTimeType));
  const auto latest =
      application.company().database().read("SELECT MAX(month) FROM worked_time", {{"Month", FieldType::kDate}});
  const Month next = latest->is_null({0})
                         ? Month::of(application.Today())
                         : Month::of(add_days(Month::of(latest->field("Month").to_date()).last_day(), 1));
  return std::make_shared<WorkedTimeEditor>(application, next);
}

void delete_worked_time(Application& application, const std::string& key) {
  delete_month_time(application, month_of_key(key, kWorkedTimeType));
}

}  // namespace quor
