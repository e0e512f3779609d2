#include "host/editors/month_lists.h"

#include <map>

#include "frame/contract/host_types.h"
#include "frame/contract/object_key.h"
#include "host/insight/room_of_month.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr int kMoneyWidth = 100;
constexpr std::size_t kRoomColumn = 6, kCheckColumn = 7, kOverColumn = 7;

ListColumn money_column(const char* key, const char* caption) {
  return {.key = key, .caption = caption, .width = kMoneyWidth, .alignment = CellAlignment::kRight};
}

// Base, supplements, surcharges and total from that column on.
void show_pay(ListView& list, std::size_t row, std::size_t column, const Pay& pay) {
  for (const double sum : {pay.base, pay.supplements, pay.surcharges, pay.total()}) {
    list.set_text(row, column++, money_text(sum));
  }
}

bool is_shown(const PersonPay& person, MonthShow show, const std::set<std::int32_t>& changed) {
  switch (show) {
    case MonthShow::kAll:
      return true;
    case MonthShow::kFaults:
      return !person.fault.empty();
    case MonthShow::kOverLimit:
      return person.over_limit;
    case MonthShow::kChanged:
      return changed.contains(person.employee);
  }
  return true;
}

// Of somebody at fault the reason, and whether earlier pay is shown.
std::string verdict(const PersonPay& person) {
  if (person.fault.empty()) return person.check;
  return person.has_document ? person.fault + " (rodomas ankstesnis skaičiavimas)" : person.fault;
}

const char* change_text(PayChange change) {
  switch (change) {
    case PayChange::kJoined:
      return "naujas";
    case PayChange::kLeft:
      return "nebėra";
    case PayChange::kChanged:
      return "pasikeitė";
    case PayChange::kNone:
      break;
  }
  return "";
}

}  // namespace

std::string money_text(double sum) { return sum == 0 ? "" : fixed_text(sum, 2); }

std::vector<ListColumn> people_columns() {
  return {{.key = "", .caption = "Pavardė, vardas", .width = 200},
          {.key = "Department", .caption = "Padalinys", .width = 160},
          money_column("Base", "Pareiginė alga"),
          money_column("Supplements", "Priedai"),
          money_column("Surcharges", "Priemokos"),
          money_column("Total", "Iš viso"),
          money_column("Room", "Dar galima"),
          {.key = "Check", .caption = "Patikra", .width = 260}};
}

void show_people(ListView& list, const std::vector<PersonPay>& people, MonthShow show,
                 const std::set<std::int32_t>& changed) {
  const ListView::BulkChange bulk(list);
  list.clear();
  list.reserve(people.size());
  for (const PersonPay& person : people) {
    if (!is_shown(person, show, changed)) continue;
    const std::size_t row = list.add_row(person.name, object_key(kEmployeeType, person.employee));
    list.set_text(row, 1, person.department);
    if (person.has_document) {
      show_pay(list, row, 2, person.pay);
      const RoomLeft left = room_left(person.pay, person.limits);
      list.set_text(row, kRoomColumn, room_text(left.both, left.over));
    }
    list.set_text(row, kCheckColumn, verdict(person));
    const bool at_fault = !person.fault.empty();
    if (person.over_limit || at_fault) {
      list.set_colour(row, 0, CellColour::kRed);
      list.set_colour(row, kCheckColumn, CellColour::kRed);
    }
  }
}

std::vector<ListColumn> department_columns() {
  return {{.key = "", .caption = "Padalinys", .width = 220},
          {.key = "People", .caption = "Žmonių", .width = 70, .alignment = CellAlignment::kRight},
          money_column("Base", "Pareiginė alga"),
          money_column("Supplements", "Priedai"),
          money_column("Surcharges", "Priemokos"),
          money_column("Total", "Iš viso"),
          money_column("Room", "Dar galima"),
          {.key = "OverLimit", .caption = "Virš ribos", .width = 80, .alignment = CellAlignment::kRight}};
}

void show_departments(ListView& list, const std::vector<PersonPay>& people) {
  const ListView::BulkChange bulk(list);
  list.clear();
  std::map<std::string, DepartmentRoom> room_of;
  for (const PersonPay& person : people) {
    if (person.has_document) room_of[person.department].add(room_left(person.pay, person.limits));
  }
  DepartmentPay all{.department = "Iš viso"};
  DepartmentRoom all_room;
  const auto add = [&](const DepartmentPay& department, const DepartmentRoom& room) {
    const std::size_t row = list.add_row(department.department);
    list.set_text(row, 1, std::to_string(department.people));
    show_pay(list, row, 2, department.pay);
    list.set_text(row, kRoomColumn, money_text(room.both));
    if (department.over_limit == 0) return;
    list.set_text(row, kOverColumn, std::to_string(department.over_limit));
    list.set_colour(row, kOverColumn, CellColour::kRed);
  };
  for (const DepartmentPay& department : by_department(people)) {
    const DepartmentRoom& room = room_of[department.department];
    add(department, room);
    all.people += department.people;
    all.over_limit += department.over_limit;
    all.pay += department.pay;
    all_room += room;
  }
  if (!people.empty()) add(all, all_room);
}

std::vector<ListColumn> difference_columns() {
  return {{.key = "", .caption = "Pavardė, vardas", .width = 200},
          {.key = "Change", .caption = "Pokytis", .width = 90},
          money_column("Before", "Anksčiau"),
          money_column("Now", "Dabar"),
          money_column("Base", "Pareiginė alga"),
          money_column("Supplements", "Priedai"),
          money_column("Surcharges", "Priemokos"),
          money_column("Total", "Skirtumas")};
}

void show_differences(ListView& list, const std::vector<PersonDifference>& differences) {
  const ListView::BulkChange bulk(list);
  list.clear();
  Pay before, now;
  const auto add = [&](const std::string& name, const std::string& tag, const char* change, const Pay& was,
                       const Pay& is) {
    const std::size_t row = list.add_row(name, tag);
    list.set_text(row, 1, change);
    list.set_text(row, 2, money_text(was.total()));
    list.set_text(row, 3, money_text(is.total()));
    show_pay(list, row, 4, is - was);
  };
  for (const PersonDifference& each : differences) {
    before += each.before;
    now += each.now;
    if (each.change == PayChange::kNone) continue;
    add(each.person.name, object_key(kEmployeeType, each.person.employee), change_text(each.change), each.before,
        each.now);
  }
  add("Iš viso", "", "", before, now);
}

ChartData fund_chart(int year, const std::array<Pay, 12>& fund) {
  ChartData chart{.title = std::to_string(year) + " m. darbo užmokesčio fondas",
                  .unit = "",
                  .labels = {},
                  .series = {{"Pareiginė alga", {}}, {"Priedai", {}}, {"Priemokos", {}}}};
  for (std::size_t month = 0; month < fund.size(); ++month) {
    chart.labels.push_back((month < 9 ? "0" : "") + std::to_string(month + 1));
    chart.series[0].values.emplace_back(fund[month].base);
    chart.series[1].values.emplace_back(fund[month].supplements);
    chart.series[2].values.emplace_back(fund[month].surcharges);
  }
  return chart;
}

}  // namespace quor
