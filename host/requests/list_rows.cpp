#include "host/requests/list_rows.h"

#include <functional>
#include <map>
#include <set>

#include "host/company/month_keys.h"
#include "host/store/object_codes.h"
#include "platform/data/month.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

class Tree {
 public:
  explicit Tree(std::vector<ShownRow> rows) : rows_(std::move(rows)) {
    std::set<std::int32_t> ids;
    for (const ShownRow& row : rows_) ids.insert(row.id);
    for (ShownRow& row : rows_) below_[ids.contains(row.parent) ? row.parent : 0].push_back(&row);
  }

  std::vector<ShownRow> in_order() {
    add_below(0, 0);
    for (ShownRow& row : rows_) add(row, 0);
    return std::move(ordered_);
  }

 private:
  void add_below(std::int32_t id, int level) {
    for (ShownRow* const row : below_[id]) add(*row, level);
  }
  void add(ShownRow& row, int level) {
    if (row.cells.empty()) return;  // it has its place already
    row.cells.push_back(std::to_string(level));
    ordered_.push_back(row);
    row.cells.clear();
    add_below(row.id, level + 1);
  }

  std::vector<ShownRow> rows_;
  std::map<std::int32_t, std::vector<ShownRow*>> below_;  // by ID, 0 for the top
  std::vector<ShownRow> ordered_;
};

}  // namespace

std::vector<ShownRow> in_tree_order(std::vector<ShownRow> rows) { return Tree(std::move(rows)).in_order(); }

std::vector<ShownRow> norm_years(Database& database) {
  struct Year {
    double hours = 0;
    int months = 0;
  };
  std::map<int, Year, std::greater<>> years;
  const auto norms = database.read("SELECT month, hours FROM month_norms",
                                   {{"Month", FieldType::kDate}, {"Hours", FieldType::kDouble}});
  for (; !norms->Eof(); norms->MoveNext()) {
    Year& year = years[norms->field("Month").to_date().year()];
    year.hours += norms->field("Hours").to_double();
    ++year.months;
  }
  std::vector<ShownRow> rows;
  for (const auto& [number, year] : years) {
    rows.push_back({number,
                    0,
                    {},
                    {object_key(kNormType, number), std::to_string(number), general_text(year.hours),
                     std::to_string(year.months)}});
  }
  return rows;
}

namespace {

// A row that stands for the month.
ShownRow month_row(const char* object_type, const Month& month, std::vector<std::string> cells) {
  cells.insert(cells.begin(), {key_of_month(object_type, month), month.text()});
  return {0, 0, {}, std::move(cells)};
}

}  // namespace

std::vector<ShownRow> paid_months(Database& database) {
  struct State {
    std::int32_t people = 0;
    bool closed = false;
  };
  std::map<Month, State, std::greater<>> months;
  const auto documents = database.read("SELECT month, COUNT(*) FROM documents GROUP BY month",
                                       {{"Month", FieldType::kDate}, {"People", FieldType::kInt32}});
  for (; !documents->Eof(); documents->MoveNext()) {
    months[Month::of(documents->field("Month").to_date())].people = documents->int32({1});
  }
  const auto closed = database.read("SELECT month FROM closed_months", {{"Month", FieldType::kDate}});
  for (; !closed->Eof(); closed->MoveNext()) months[Month::of(closed->field("Month").to_date())].closed = true;
  std::vector<ShownRow> rows;
  for (const auto& [month, state] : months) {
    rows.push_back(
        month_row(kMonthType, month, {state.closed ? "uždarytas" : "apskaičiuotas", std::to_string(state.people)}));
  }
  return rows;
}

std::vector<ShownRow> timed_months(Database& database) {
  const auto months = database.read(
      "SELECT month, COUNT(DISTINCT employee_id), SUM(hours) FROM worked_time GROUP BY month ORDER BY month DESC",
      {{"Month", FieldType::kDate}, {"People", FieldType::kInt32}, {"Hours", FieldType::kDouble}});
  std::vector<ShownRow> rows;
  for (; !months->Eof(); months->MoveNext()) {
    rows.push_back(month_row(kWorkedTimeType, Month::of(months->field("Month").to_date()),
                             {std::to_string(months->int32({1})), general_text(months->number({2}))}));
  }
  return rows;
}

}  // namespace quor
