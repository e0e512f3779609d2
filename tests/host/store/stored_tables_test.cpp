// The description of the tables against the schema that the migrations make.
#include "host/store/tables/stored_tables.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

#include "host/store/tables/statements.h"
#include "host/store/tables/table_rows.h"
#include "tests/support/company_place.h"

namespace quor {
namespace {

using Columns = std::map<std::string, std::string>;  // by "table.column": "integer not null of employees"

// What the program keeps for itself and no file carries.
const std::set<std::string> kOwnTables = {"company",    "counters", "desk_top",
                                          "month_runs", "next_ids", "schema_migrations"};
const std::string kOwnColumn = "closed_months.pay_inputs";

constexpr char kServersColumns[] =
    "SELECT c.table_name, c.column_name, c.data_type, CASE WHEN c.is_nullable = 'NO' THEN 1 ELSE 0 END,"
    " (SELECT other.relname FROM pg_constraint f JOIN pg_class own ON own.oid = f.conrelid"
    " JOIN pg_namespace n ON n.oid = own.relnamespace JOIN pg_class other ON other.oid = f.confrelid"
    " WHERE f.contype = 'f' AND n.nspname = c.table_schema AND own.relname = c.table_name"
    " AND f.conkey[1] = c.ordinal_position)"
    " FROM information_schema.columns c WHERE c.table_schema = current_schema()";
constexpr char kFilesColumns[] =
    "SELECT m.name, c.name, LOWER(c.type), c.\"notnull\" OR c.pk,"
    " (SELECT f.\"table\" FROM pragma_foreign_key_list(m.name) f WHERE f.\"from\" = c.name)"
    " FROM sqlite_master m JOIN pragma_table_info(m.name) c WHERE m.type = 'table' AND m.name NOT LIKE 'sqlite_%'";

Columns columns_of_schema(Database& database) {
  const auto rows =
      database.read(database.on_server() ? kServersColumns : kFilesColumns, {{"Table", FieldType::kText},
                                                                             {"Column", FieldType::kText},
                                                                             {"Type", FieldType::kText},
                                                                             {"Needed", FieldType::kInt32},
                                                                             {"Of", FieldType::kText}});
  Columns columns;
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string table(rows->text({0})), column = table + "." + std::string(rows->text({1}));
    if (kOwnTables.count(table) > 0 || column == kOwnColumn) continue;
    columns[column] = std::string(rows->text({2})) + (rows->int32({3}) != 0 ? " not null" : "") +
                      (rows->is_null({4}) ? "" : " of " + std::string(rows->text({4})));
  }
  return columns;
}

std::string type_of(FieldType type) {
  if (type == FieldType::kText) return "text";
  return type == FieldType::kDouble ? "double precision" : "integer";
}

Columns described_columns() {
  Columns columns;
  for (const StoredTable& table : stored_tables()) {
    const std::string name(table.name);
    if (table.hidden_id) columns[name + ".id"] = "integer not null";
    if (table.named) columns[name + ".sort_key"] = "text not null";
    if (table.versioned) {
      columns[name + ".row_version"] = "integer not null";
      columns[name + ".changed_by"] = columns[name + ".changed_at"] = "text";
    }
    for (const FieldInfo& field : stored_fields(table)) {
      const std::size_t at = table.column(field.name);
      // A month behind a day or month is always there, the day only for a day.
      const bool needed = at < table.columns.size() ? table.columns[at].required() : field.name != "day";
      const std::string_view of = at < table.columns.size() ? table.columns[at].references : "";
      columns[name + "." + field.name] =
          type_of(field.type) + (needed ? " not null" : "") + (of.empty() ? "" : " of " + std::string(of));
    }
  }
  return columns;
}

class StoredTables : public testing::TestWithParam<Backend> {};
ON_EVERY_DATABASE(StoredTables);

TEST_P(StoredTables, AreDescribedAsTheMigrationsMakeThem) {
  const auto place = GetParam().make_place();
  EXPECT_EQ(described_columns(), columns_of_schema(*Database::create(place->address())));
}

TEST(StoredTables, NameNothingThatIsNotDescribed) {
  for (const StoredTable& table : stored_tables()) {
    SCOPED_TRACE(table.name);
    EXPECT_NE(table.caption, "");
    EXPECT_EQ(table.about == nullptr, table.name == "users" || table.name == "rights") << "the administrator's alone";
    StoredTable::Names names = table.key;
    for (const auto& unique : table.uniques) names.insert(names.end(), unique.begin(), unique.end());
    for (const auto name : {table.closed_by, table.owner}) names.push_back(name.empty() ? table.key.front() : name);
    for (const std::string_view name : names) EXPECT_LT(table.column(name), table.columns.size()) << name;
    for (const StoredColumn& column : table.columns) {
      EXPECT_NE(column.caption, "") << column.name;
      const bool number = column.kind == ColumnKind::kNumber || column.kind == ColumnKind::kWhole;
      EXPECT_EQ(column.range == nullptr && number, column.name == "check_code") << column.name;
      if (column.references.empty()) continue;
      EXPECT_LE(find_stored_table(column.references), &table) << column.name;
    }
  }
  EXPECT_THROW(stored_column("positions", "shares"), std::logic_error);
  EXPECT_THROW(TableRows("positions", {"id", "shares"}), std::logic_error);
  const auto database = Database::open(":memory:");
  EXPECT_THROW(insert_row(*database, "positions", {{"shares", 1.0}}), std::logic_error);
  EXPECT_THROW(update_row(*database, "positions", 1, {{"shares", 1.0}}), std::logic_error);
  EXPECT_THROW(TableRows("departments").append_row(1, kNull), std::logic_error);
}

}  // namespace
}  // namespace quor
