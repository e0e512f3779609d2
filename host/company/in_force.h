// "In force at a date": of dated rows of one owner, the one with the latest date_from on or before the date; of two
// rows of one date the one stored last. The only place that says so, but for closed_reach.cpp, which asks for days.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/data/date.h"

namespace quor {

// A SQL subselect of the ID of the row of `table` in force at the date bound to `date_bind` (":p0").
// `owner_condition` picks the owner's rows through the alias `dated` ("dated.category_id = c.id"); "" for all rows.
inline std::string id_in_force(const std::string& table, const std::string& owner_condition,
                               const std::string& date_bind) {
  return "(SELECT dated.id FROM " + table + " dated WHERE dated.date_from <= " + date_bind +
         (owner_condition.empty() ? "" : " AND " + owner_condition) +
         " ORDER BY dated.date_from DESC, dated.id DESC LIMIT 1)";
}

// The same in memory, for whoever asks at many dates: the rows of many owners, read once.
template <typename Value>
class DatedRows {
 public:
  // SQL for the order in which rows are added; rows without a date are never in force and are left out.
  static constexpr const char* kOrder = " ORDER BY date_from, id";

  void add(std::int32_t owner, Date from, Value value) { rows_[owner].push_back({from, std::move(value)}); }
  // Null when none is.
  const Value* in_force(std::int32_t owner, Date date) const {
    const auto found = rows_.find(owner);
    if (found == rows_.end()) return nullptr;
    const std::vector<Row>& rows = found->second;
    const auto after =
        std::upper_bound(rows.begin(), rows.end(), date, [](Date at, const Row& row) { return at < row.from; });
    return after == rows.begin() ? nullptr : &std::prev(after)->value;
  }

 private:
  struct Row {
    Date from;
    Value value;
  };
  std::unordered_map<std::int32_t, std::vector<Row>> rows_;
};

}  // namespace quor
