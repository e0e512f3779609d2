#include "host/editors/first_page.h"

#include <array>

#include "host/editors/month_lists.h"
#include "host/editors/watched_work.h"
#include "host/insight/steps_ahead.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr std::array kMonths = {1, 3, 6, 12};

std::vector<ListColumn> step_columns() {
  constexpr CellAlignment kRight = CellAlignment::kRight;
  return {{.key = "", .caption = "Pavardė, vardas", .width = 220},
          {.key = "Day", .caption = "Diena", .width = 90},
          {.key = "Years", .caption = "Stažas, m.", .width = 80, .alignment = kRight},
          {.key = "Before", .caption = "Buvo, %", .width = 70, .alignment = kRight},
          {.key = "After", .caption = "Bus, %", .width = 70, .alignment = kRight},
          {.key = "Difference", .caption = "Skirtumas", .width = 90, .alignment = kRight},
          {.key = "Remark", .caption = "Pastaba", .width = 260}};
}

void show_step(ListView& list, const ServiceStep& step) {
  const std::size_t row = list.add_row(step.name, object_key(kEmployeeType, step.employee));
  std::size_t column = 0;
  for (const std::string& text : {date_text(step.day), std::to_string(step.years), general_text(step.before),
                                  general_text(step.after), money_text(step.difference), step_remark(step)}) {
    list.set_text(row, ++column, text);
  }
  if (!step.over_limit) return;
  list.set_colour(row, 0, CellColour::kRed);
  list.set_colour(row, column, CellColour::kRed);
}

}  // namespace

FirstPage::FirstPage(Application& application)
    : Form("Pradžia"), lvwSteps(*this, "lvwSteps", step_columns()), application_(application) {
  lvwSteps.on_double_click = [this] { application_.open_object(lvwSteps.selected_tag()); };
  cmdShow.on_click = [this] { read(); };
  chcMonths.on_change = [this] { read(); };
  set_layout(column(
      {pnlSteps, lblState, row({field("Nuo mėnesio", dtpMonth), field("Mėnesių", chcMonths), cmdShow}), lvwSteps}));
}

void FirstPage::opening() {
  pnlSteps.set_caption("Kas pasieks kitą priedo už tarnybos stažą procentą");
  if (!chcMonths.selected()) {
    dtpMonth.set_value(Month::of(application_.Today()).first_day());
    std::vector<ChoiceBox::Item> items;
    for (const int months : kMonths) items.push_back({std::to_string(months)});
    chcMonths.set_items(std::move(items));
    chcMonths.select_item(1);
  }
  const bool may_see = application_.HasRight(UserRight::kView, kSalaryExtensionType, 0);
  cmdShow.set_enabled(may_see);
  if (!may_see) return lblState.set_caption("Darbo užmokesčio duomenų peržiūrėti neturite teisės.");
  const auto people =
      application_.company().database().read("SELECT COUNT(*) FROM employees", {{"People", FieldType::kDouble}});
  if (people->number({0}) <= kPeopleReadAtOnce) return read();
  lblState.set_caption("Žmonių daug: sąrašą sudaro mygtukas „Rodyti“ (F5).");
}

void FirstPage::read() {
  if (!cmdShow.enabled()) return;
  const Month first = Month::of(dtpMonth.value());
  StepsAhead ahead;
  {
    const auto work = application_.begin_work("Ieškoma, kas pasieks kitą stažo pakopą");
    ahead = steps_ahead(application_, first, kMonths.at(chcMonths.selected().value_or(1)), watched(*work));
  }
  const ListView::BulkChange bulk(lvwSteps);
  lvwSteps.clear();
  for (const ServiceStep& step : ahead.steps) show_step(lvwSteps, step);
  std::string state = ahead.cancelled       ? "Nutraukta."
                      : ahead.steps.empty() ? "Niekas."
                                            : "Žmonių: " + std::to_string(ahead.steps.size()) + ".";
  for (const PersonFault& fault : ahead.faults) state += " " + fault.person + ": " + fault.reason + ".";
  lblState.set_caption(state);
}

}  // namespace quor
