#include "host/exchange/import_write.h"

#include <algorithm>

#include "host/exchange/stored_rows.h"
#include "host/store/record_guard.h"
#include "host/store/sort_key.h"
#include "platform/data/column.h"

namespace quor {

namespace {

constexpr char kChanges[] = "imported_changes";
constexpr std::size_t kOwnersPerStatement = 500;

// The rows as columns of the database: the file's, the hidden ID, the sort key.
std::vector<ColumnData> columns_of(const ExchangedTable& table, const std::vector<FileRow>& rows) {
  const std::vector<FieldInfo> fields = stored_fields(table);
  std::vector<ColumnData> columns(fields.begin(), fields.end());
  for (const FileRow& row : rows) append_row(table, row.cells, columns);
  if (table.hidden_id) {
    columns.emplace_back(FieldInfo{"id", FieldType::kInt32});
    for (const FileRow& row : rows) columns.back().append(row.id);
  }
  if (table.named) {
    const std::size_t name = table.column("name");
    columns.emplace_back(FieldInfo{"sort_key", FieldType::kText});
    for (const FileRow& row : rows) columns.back().append(lithuanian_sort_key(row.cells[name].to_text()));
  }
  return columns;
}

void add_constant(std::vector<ColumnData>& columns, const char* name, FieldType type, const Variant& value) {
  const std::size_t rows = columns.front().size();
  columns.emplace_back(FieldInfo{name, type});
  for (std::size_t row = 0; row < rows; ++row) columns.back().append(value);
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
  const ExchangedTable& table = *plan.table;
  std::vector<FileRow> rows = plan.added;
  if (table.hidden_id) {
    std::int32_t id = database.reserve_ids(table.name, static_cast<std::int32_t>(rows.size()));
    for (FileRow& row : rows) row.id = id++;
  }
  std::vector<ColumnData> columns = columns_of(table, rows);
  if (table.versioned) {
    add_constant(columns, "row_version", FieldType::kInt32, 1);
    add_constant(columns, "changed_by", FieldType::kText, user);
    add_constant(columns, "changed_at", FieldType::kText, change_time());
  }
  database.insert(table.name, columns);
  raise_next_id(database, plan);
}

// The new values go into a table of their own first, so that one statement changes all rows.
void change_rows(Database& database, const TablePlan& plan, const std::string& user) {
  if (plan.changed.empty()) return;
  const ExchangedTable& table = *plan.table;
  const std::string name(table.name), changes(kChanges);
  const std::vector<ColumnData> columns = columns_of(table, plan.changed);
  const ExchangedTable::Names key = table.hidden_id ? ExchangedTable::Names{"id"} : table.key;

  std::string list, assignments, same_key;
  for (const ColumnData& column : columns) {
    const std::string& each = column.info.name;
    list += (list.empty() ? "" : ", ") + each;
    const bool in_key = std::find(key.begin(), key.end(), each) != key.end();
    std::string& text = in_key ? same_key : assignments;
    text += (text.empty() ? "" : in_key ? " AND " : ", ");
    text += (in_key ? name + "." : "") + each + " = " + changes + "." + each;
  }
  std::vector<Variant> values;
  if (table.versioned) {
    assignments += ", row_version = " + name + ".row_version + 1, changed_by = :p0, changed_at = :p1";
    values = {user, change_time()};
  }
  database.execute("CREATE TEMPORARY TABLE " + changes + " AS SELECT " + list + " FROM " + name + " WHERE 1 = 0");
  database.insert(changes, columns);
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
  const ExchangedTable& table = *plan.table;
  const std::string owners(table.columns[table.column(table.owner)].references);
  for (auto owner = plan.owners.begin(); owner != plan.owners.end();) {
    std::vector<Variant> values = {user, change_time()};
    std::string ids;
    for (; owner != plan.owners.end() && values.size() < kOwnersPerStatement; ++owner) {
      ids += (ids.empty() ? ":p" : ", :p") + std::to_string(values.size());
      values.emplace_back(*owner);
    }
    database.execute("UPDATE " + owners +
                         " SET row_version = row_version + 1, changed_by = :p0, changed_at = :p1 WHERE id IN (" + ids +
                         ")",
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
