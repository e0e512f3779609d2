#include "host/store/stored_sort_keys.h"

#include "host/store/sort_key.h"
#include "platform/data/column.h"

namespace quor {
namespace {

constexpr char kRule[] = "sort_key_rule";

std::int32_t stored_rule(Database& database) {
  const auto row = database.read("SELECT value FROM counters WHERE name = :p0", {{"Rule", FieldType::kInt32}}, {kRule});
  return row->Eof() ? 0 : row->int32({0});
}

void renew(Database& database, const std::string& table) {
  const auto rows =
      database.read("SELECT id, name, sort_key FROM " + table,
                    {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"SortKey", FieldType::kText}});
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string key = lithuanian_sort_key(rows->text({1}));
    if (key == rows->text({2})) continue;
    database.execute("UPDATE " + table + " SET sort_key = :p0 WHERE id = :p1", {key, rows->int32({0})});
  }
}

}  // namespace

void note_sort_keys(Database& database) {
  database.execute(
      "INSERT INTO counters (name, value) VALUES (:p0, :p1) ON CONFLICT (name) DO UPDATE SET value = excluded.value",
      {kRule, sort_key_rule()});
}

void renew_sort_keys(Database& database) {
  if (!database.may_write() || stored_rule(database) >= sort_key_rule()) return;
  try {
    Transaction transaction(database, Writes::kOther);
    if (stored_rule(database) >= sort_key_rule()) return;  // another program was faster
    for (const char* table : {"departments", "employees"}) renew(database, table);
    note_sort_keys(database);
    transaction.commit();
  } catch (const StoreError& error) {
    if (error.fault() != StoreFault::kNotWritable && error.fault() != StoreFault::kLocked) throw;
  }
}

}  // namespace quor
