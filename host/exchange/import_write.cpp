#include "host/exchange/import_write.h"

#include <algorithm>

#include "host/exchange/stored_rows.h"
#include "host/store/record_guard.h"
#include "host/store/sort_key.h"
#include "host/store/tables/statements.h"
#include "host/store/tables/table_rows.h"

namespace quor {

namespace {

constexpr char kChanges[] = "imported_changes";
constexpr std::size_t kOwnersPerStatement = 500;

// The rows as the database holds them: the file's columns, the hidden ID, the sort key, and the version.
TableRows rows_of(const StoredTable& table, const std::vector<FileRow>& rows, const std::vector<ColumnValue>& version) {
  std::vector<std::string> names;
  for (const FieldInfo& field : stored_fields(table)) names.push_back(field.name);
  if (table.hidden_id) names.push_back("id");
  if (table.named) names.push_back("sort_key");
  for (const ColumnValue& each : version) names.push_back(each.column);
  TableRows stored(table.name, names);
  for (const FileRow& row : rows) {
    std::vector<Variant> cells = stored_cells(table, row.cells);
    if (table.hidden_id) cells.emplace_back(row.id);
    if (table.named) cells.emplace_back(lithuanian_sort_key(row.cells[table.column("name")].to_text()));
    for (const ColumnValue& each : version) cells.push_back(each.value);
    stored.append_row(cells);
  }
  return stored;
}

// IDs given from now on are larger than every one that came in.
void raise_next_id(Database& database, const TablePlan& plan) {
  const std::size_t id = plan.table->column("id");
  if (id == plan.table->columns.size()) return;
  std::int32_t largest = 0;
  for (const FileRow& row : plan.added) largest = std::max(largest, row.cells[id].to_int32());
  database.execute(
      "INSERT INTO next_ids (table_name, next_id) VALUES (:p0, :p1) ON CONFLICT (table_name) DO UPDATE"
      " SET next_id = excluded.next_id WHERE next_ids.next_id < excluded.next_id",
      {plan.table->name, largest + 1});
}

void add_rows(Database& database, const TablePlan& plan, const std::string& user) {
  if (plan.added.empty()) return;
  const StoredTable& table = *plan.table;
  std::vector<FileRow> rows = plan.added;
  if (table.hidden_id) {
    std::int32_t id = database.reserve_ids(table.name, static_cast<std::int32_t>(rows.size()));
    for (FileRow& row : rows) row.id = id++;
  }
  rows_of(table, rows, table.versioned ? first_version(user) : std::vector<ColumnValue>{}).insert_into(database);
  raise_next_id(database, plan);
}

// The new values go into a table of their own first, so that one statement changes all rows.
void change_rows(Database& database, const TablePlan& plan, const std::string& user) {
  if (plan.changed.empty()) return;
  const StoredTable& table = *plan.table;
  const std::string name(table.name), changes(kChanges);
  const TableRows rows = rows_of(table, plan.changed, {});
  const StoredTable::Names key = table.hidden_id ? StoredTable::Names{"id"} : table.key;

  std::string list, assignments, same_key;
  for (const ColumnData& column : rows.columns()) {
    const std::string& each = column.info.name;
    list += (list.empty() ? "" : ", ") + each;
    const bool in_key = std::find(key.begin(), key.end(), each) != key.end();
    std::string& text = in_key ? same_key : assignments;
    text += (text.empty() ? "" : in_key ? " AND " : ", ");
    text += (in_key ? name + "." : "") + each + " = " + changes + "." + each;
  }
  std::vector<Variant> values;
  if (table.versioned) {
    assignments += ", " + next_version(name, ":p0", ":p1");
    values = {user, change_time()};
  }
  database.execute("CREATE TEMPORARY TABLE " + changes + " AS SELECT " + list + " FROM " + name + " WHERE 1 = 0");
  database.insert(changes, rows.columns());
  const auto touched =
      database.execute("UPDATE " + name + " SET " + assignments + " FROM " + changes + " WHERE " + same_key, values);
  database.execute("DROP TABLE " + changes);
  if (touched != static_cast<std::int64_t>(plan.changed.size())) {
    throw StoreError(StoreFault::kChangedElsewhere, "lentelę " + table.words() + " tuo metu keitė kitas vartotojas");
  }
}

// Whoever has the record open reads it again before the next save: what has come in would else be overwritten.
void raise_owners(Database& database, const TablePlan& plan, const std::string& user) {
  if (plan.owners.empty()) return;
  const StoredTable& table = *plan.table;
  const std::string owners(table.columns[table.column(table.owner)].references);
  for (auto owner = plan.owners.begin(); owner != plan.owners.end();) {
    std::vector<Variant> values = {user, change_time()};
    std::string ids;
    for (; owner != plan.owners.end() && values.size() < kOwnersPerStatement; ++owner) {
      ids += (ids.empty() ? ":p" : ", :p") + std::to_string(values.size());
      values.emplace_back(*owner);
    }
    database.execute("UPDATE " + owners + " SET " + next_version(owners, ":p0", ":p1") + " WHERE id IN (" + ids + ")",
                     values);
  }
}

}  // namespace

void write_plan(Database& database, const TablePlan& plan, const std::string& user) {
  add_rows(database, plan, user);
  change_rows(database, plan, user);
  raise_owners(database, plan, user);
}

}  // namespace quor
