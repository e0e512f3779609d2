#include "host/store/tables/statements.h"

#include "host/store/record_guard.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

namespace {

// The values of one statement, each bound by its place.
class Bound {
 public:
  std::string add(const Variant& value) {
    values_.push_back(value);
    return ":p" + std::to_string(values_.size() - 1);
  }
  std::int64_t execute(Database& database, const std::string& sql) const { return database.execute(sql, values_); }

 private:
  std::vector<Variant> values_;
};

void append(std::string& list, const std::string& text) { list += (list.empty() ? "" : ", ") + text; }

}  // namespace

std::vector<ColumnValue> first_version(const std::string& user) {
  return {{"row_version", 1}, {"changed_by", user}, {"changed_at", change_time()}};
}

std::string next_version(std::string_view table, const std::string& user, const std::string& time) {
  return "row_version = " + std::string(table) + ".row_version + 1, changed_by = " + user + ", changed_at = " + time;
}

void insert_row(Database& database, std::string_view table, const std::vector<ColumnValue>& values,
                const std::string& user) {
  std::vector<ColumnValue> all = values;
  if (stored_table(table).versioned) {
    const std::vector<ColumnValue> version = first_version(user);
    all.insert(all.end(), version.begin(), version.end());
  }
  Bound bound;
  std::string columns, binds;
  for (const ColumnValue& each : all) {
    append(columns, stored_field(table, each.column).name);
    append(binds, bound.add(each.value));
  }
  bound.execute(database, "INSERT INTO " + std::string(table) + " (" + columns + ") VALUES (" + binds + ")");
}

bool update_row(Database& database, std::string_view table, std::int32_t id, const std::vector<ColumnValue>& values,
                const std::string& user, std::optional<std::int32_t> row_version) {
  Bound bound;
  std::string assignments;
  for (const ColumnValue& each : values) {
    append(assignments, stored_field(table, each.column).name + " = " + bound.add(each.value));
  }
  if (stored_table(table).versioned) {
    const std::string who = bound.add(user), when = bound.add(change_time());
    append(assignments, next_version(table, who, when));
  }
  std::string which = " WHERE id = " + bound.add(id);
  if (row_version) which += " AND row_version = " + bound.add(*row_version);
  return bound.execute(database, "UPDATE " + std::string(table) + " SET " + assignments + which) > 0;
}

void delete_row(Database& database, std::string_view table, std::int32_t id) {
  database.execute("DELETE FROM " + std::string(stored_table(table).name) + " WHERE id = :p0", {id});
}

}  // namespace quor
