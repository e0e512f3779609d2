// "In force at a date": of dated rows of one owner, the one with the latest date_from on or before the date; of two
// rows of one date the one stored last. The only place that says so.
#pragma once

#include <string>

namespace quor {

// A SQL subselect of the ID of the row of `table` in force at the date bound to `date_bind` (":p0").
// `owner_condition` picks the owner's rows through the alias `dated` ("dated.category_id = c.id"); "" for all rows.
inline std::string id_in_force(const std::string& table, const std::string& owner_condition,
                               const std::string& date_bind) {
  return "(SELECT dated.id FROM " + table + " dated WHERE dated.date_from <= " + date_bind +
         (owner_condition.empty() ? "" : " AND " + owner_condition) +
         " ORDER BY dated.date_from DESC, dated.id DESC LIMIT 1)";
}

}  // namespace quor
