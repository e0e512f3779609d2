#include "host/editors/month_norms_editor.h"

#include <algorithm>

#include "frame/contract/host_types.h"
#include "host/company/public_holidays.h"
#include "host/editors/entered_values.h"
#include "host/payroll/closed_month_guard.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

constexpr std::size_t kDaysColumn = 1, kShortColumn = 2, kProposedColumn = 3, kNormColumn = 4, kHolidaysColumn = 5;

std::string holidays_text(const std::vector<PublicHoliday>& holidays) {
  std::string text;
  for (const PublicHoliday& each : holidays) {
    text += (text.empty() ? "" : "; ") + std::to_string(each.day.day()) + " d. " + each.name;
  }
  return text;
}

// None for what is no year that a company may hold.
std::optional<int> year_of(const std::string& text) {
  const auto date = try_parse_date(text + ".01.01");
  if (text.size() != 4 || !date || !is_stored_date(*date)) return {};
  return date->year();
}

}  // namespace

MonthNormsEditor::MonthNormsEditor(Application& application, int year, bool is_new)
    : Form("Mėnesių normos"), application_(application), year_(year), is_new_(is_new) {
  shorten_days.set_checked(true);
  txtYear.on_change = [this] { turn_to_year(); };
  txtYear.on_leave = [this] { txtYear.set_text(std::to_string(year_)); };
  shorten_days.on_change = [this] { fill(); };
  lvwMonths.on_select = [this] { show_chosen(); };
  lvwMonths.on_double_click = [this] { txtNorm.focus(); };
  txtNorm.on_enter = [this] { txtNorm.select(0, character_count(txtNorm.text())); };
  txtNorm.on_key = [](char32_t key) { return key == U'.' ? U',' : key; };
  txtNorm.on_change = [this] { norm_typed(); };
  cmdProposeMonth.on_click = [this] {
    if (const auto month = lvwMonths.selected()) propose(*month);
    show_norms();
  };
  cmdProposeAll.on_click = [this] { propose_all(); };
  cmdWrite.on_click = [this] { write(); };
  cmdCancel.on_click = [this] { read(); };
  cmdClose.on_click = [this] { close(); };
  set_layout(column({row({field("Metai", txtYear), shorten_days}), lvwMonths,
                     row({lblMonth, field("Mėnesio norma valandomis", txtNorm), cmdProposeMonth, cmdProposeAll}),
                     row({cmdWrite, cmdCancel, cmdClose})}));
}

std::string MonthNormsEditor::subject() const { return is_new_ ? "" : object_key(kNormType, year_); }

// ---- what the user does

// A year that is still being typed is none yet.
void MonthNormsEditor::turn_to_year() {
  const auto year = year_of(txtYear.text());
  if (!year || *year == year_) return;
  year_ = *year;
  read_ = read_year_norms(application_.company().database(), year_);
  texts_ = read_texts();
  fill();
}

void MonthNormsEditor::show_chosen() {
  const auto month = lvwMonths.selected();
  lblMonth.set_caption(month ? lvwMonths.text(*month) : "");
  txtNorm.set_text(month ? texts_[*month] : "");
  set_states();
}

void MonthNormsEditor::norm_typed() {
  const auto month = lvwMonths.selected();
  if (!month) return;
  texts_[*month] = txtNorm.text();
  lvwMonths.set_text(*month, kNormColumn, texts_[*month]);
  set_states();
}

void MonthNormsEditor::propose_all() {
  for (std::size_t month = 0; month < texts_.size(); ++month) propose(month);
  show_norms();
}

void MonthNormsEditor::propose(std::size_t month) { texts_[month] = general_text(proposed(month)); }

void MonthNormsEditor::write() {
  EnteredValues entered(application_);
  const YearNorms wanted = entered_norms(entered);
  if (entered.show_faults()) return;
  try {
    store_year_norms(application_, application_.company(), year_, read_, wanted);
  } catch (const StoreError& error) {
    application_.MessageBox("Įrašymas neatliktas!" + (kLineBreak + std::string(error.what())), BoxIcon::kExclamation,
                            BoxButtons::kOk, application_.Title());
    return;
  }
  is_new_ = false;
  const auto object = application_.NewStandardObjectUIO(kNormType);
  object->OIDR(object_key(kNormType, year_));
  application_.open_objects().written(*object);
  read();
}

// ---- showing

void MonthNormsEditor::read() {
  read_ = read_year_norms(application_.company().database(), year_);
  texts_ = read_texts();
  txtYear.set_text(std::to_string(year_));
  fill();
}

void MonthNormsEditor::fill() {
  {
    const ListView::BulkChange bulk(lvwMonths);
    const auto chosen = lvwMonths.selected();
    lvwMonths.clear();
    for (std::size_t at = 0; at < texts_.size(); ++at) {
      const Month month = month_of_year(year_, at);
      const ProposedNorm norm = proposed_norm(month, shorten_days.checked());
      lvwMonths.add_row(month.text() + (is_closed(application_.company().database(), month) ? " uždarytas" : ""));
      lvwMonths.set_text(at, kDaysColumn, std::to_string(norm.working_days));
      lvwMonths.set_text(at, kShortColumn, std::to_string(norm.shortened_days));
      lvwMonths.set_text(at, kProposedColumn, general_text(norm.hours));
      lvwMonths.set_text(at, kHolidaysColumn, holidays_text(norm.holidays));
    }
    lvwMonths.select_row(chosen.value_or(0));
  }
  show_norms();
}

void MonthNormsEditor::show_norms() {
  const ListView::BulkChange bulk(lvwMonths);
  for (std::size_t at = 0; at < texts_.size(); ++at) lvwMonths.set_text(at, kNormColumn, texts_[at]);
  show_chosen();
}

void MonthNormsEditor::set_states() {
  const bool may_write = application_.HasRight(UserRight::kWrite, kNormType, 0), unsaved = has_unsaved_changes();
  txtYear.set_read_only(!is_new_ || unsaved);
  txtNorm.set_read_only(!may_write);
  cmdProposeMonth.set_enabled(may_write && lvwMonths.selected().has_value());
  cmdProposeAll.set_enabled(may_write);
  cmdWrite.set_enabled(may_write && unsaved);
  cmdCancel.set_enabled(unsaved);
}

MonthNormsEditor::Texts MonthNormsEditor::read_texts() const {
  Texts texts;
  for (std::size_t at = 0; at < texts.size(); ++at) texts[at] = read_[at] ? general_text(*read_[at]) : "";
  return texts;
}

double MonthNormsEditor::proposed(std::size_t month) const {
  return proposed_norm(month_of_year(year_, month), shorten_days.checked()).hours;
}

// What was left as it was read stays so to the last bit. The cursor goes to the first month at fault.
YearNorms MonthNormsEditor::entered_norms(EnteredValues& entered) {
  YearNorms norms = read_;
  const Texts as_read = read_texts();
  const auto chosen = lvwMonths.selected();
  std::optional<std::size_t> at_fault;
  for (std::size_t at = 0; at < texts_.size(); ++at) {
    if (texts_[at] == as_read[at]) continue;
    txtNorm.set_text(texts_[at]);
    norms[at] = entered.optional_number(txtNorm, "Mėnesio " + month_of_year(year_, at).text() + " norma", kMonthNorm);
    const bool blank = texts_[at].find_first_not_of(" \t") == std::string::npos;
    if (!at_fault && !blank && !(norms[at] && kMonthNorm.holds(*norms[at]))) at_fault = at;
  }
  lvwMonths.select_row(at_fault ? at_fault : chosen);
  show_chosen();
  return norms;
}

// ---- opening

std::shared_ptr<Form> month_norms_editor(Application& application, const std::string& object) {
  if (const auto year = id_of_key(object)) {
    if (year_of(std::to_string(*year))) return std::make_shared<MonthNormsEditor>(application, *year, false);
    throw Error(ErrorKind::kNotFound, "Metų „" + std::to_string(*year) + "“ normų nėra.");
  }
  int year = application.Today().year();
  const auto is_whole = [&] {
    const YearNorms norms = read_year_norms(application.company().database(), year);
    return std::all_of(norms.begin(), norms.end(), [](const auto& norm) { return norm.has_value(); });
  };
  while (year < last_stored_date().year() && is_whole()) ++year;
  return std::make_shared<MonthNormsEditor>(application, year, true);
}

void delete_month_norms(Application& application, const std::string& key) {
  application.guard().require_right(UserRight::kDelete, kNormType, "naikinti mėnesių normų");
  const int year = id_of_key(key).value_or(0);
  if (!year_of(std::to_string(year))) throw Error(ErrorKind::kNotFound, "Normų „" + key + "“ nėra.");
  store_year_norms(application, application.company(), year, read_year_norms(application.company().database(), year),
                   {});
}

}  // namespace quor
