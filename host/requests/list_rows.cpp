#include "host/requests/list_rows.h"

#include <map>
#include <set>

#include "host/store/object_codes.h"
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

}  // namespace quor
