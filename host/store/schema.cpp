#include "host/store/schema.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <ctime>

#include "platform/data/column.h"

namespace quor {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::int32_t single_number(Database& database, const std::string& sql, const std::vector<Variant>& values = {}) {
  const auto row = database.read(sql, {{"Number", FieldType::kInt32}}, values);
  return row->Eof() ? 0 : null_to_int32(row->field("Number"));
}

std::int32_t migration_number(const EmbeddedFile& file) {
  std::int32_t number = 0;
  std::from_chars(file.name.data(), file.name.data() + file.name.size(), number);
  return number;
}

std::string utc_now() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[sizeof "2008-01-31T00:00:00Z"];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

void apply(Database& database, const EmbeddedFile& file) {
  for (const std::string& statement : split_statements(file.text())) database.execute(statement);
  database.execute("INSERT INTO schema_migrations (number, applied_at) VALUES (:p0, :p1)",
                   {migration_number(file), utc_now()});
}

void apply_once(Database& database, const EmbeddedFile& file) {
  Transaction transaction(database, Writes::kOther);
  const std::int32_t number = migration_number(file);
  if (single_number(database, "SELECT number FROM schema_migrations WHERE number = :p0", {number}) != 0) return;
  apply(database, file);
  transaction.commit();
}

}  // namespace

bool holds_company(Database& database) {
  // Both tables by a column of theirs: other programs keep a table schema_migrations too.
  const std::string marks = "(VALUES ('schema_migrations', 'number'), ('company', 'change_count'))";
  return single_number(database, database.on_server()
                                     ? "SELECT COUNT(*) FROM information_schema.columns WHERE table_schema = "
                                       "current_schema() AND (table_name, column_name) IN " +
                                           marks
                                     : "SELECT COUNT(*) FROM sqlite_master t, pragma_table_info(t.name) c "
                                       "WHERE t.type = 'table' AND (t.name, c.name) IN " +
                                           marks) == 2;
}

void make_schema(Database& database) {
  database.execute("CREATE TABLE schema_migrations (number INTEGER PRIMARY KEY, applied_at TEXT NOT NULL)");
  for (const EmbeddedFile& file : migration_files()) apply(database, file);
}

void migrate(Database& database, std::span<const EmbeddedFile> files) {
  const std::int32_t applied = single_number(database, "SELECT MAX(number) FROM schema_migrations");
  const std::int32_t known = files.empty() ? 0 : migration_number(files.back());
  if (applied > known) {
    throw StoreError(StoreFault::kNewerSchema, "įmonę įrašė naujesnė programa (duomenų versija " +
                                                   std::to_string(applied) + ", ši programa žino " +
                                                   std::to_string(known) + "): „" + database.name() + "“");
  }
  if (applied < known && !database.may_write()) {
    throw StoreError(StoreFault::kNotWritable,
                     "įmonę įrašė senesnė programa, ir kol jos keisti negalima, peržiūrėti jos taip pat negalima: „" +
                         database.name() + "“");
  }
  for (const EmbeddedFile& file : files) {
    if (migration_number(file) > applied) apply_once(database, file);
  }
}

std::vector<std::string> split_statements(std::string_view script) {
  std::vector<std::string> statements;
  std::string current;
  const auto finish = [&] {
    const auto begin = current.find_first_not_of(kBlanks);
    if (begin != std::string::npos)
      statements.push_back(current.substr(begin, current.find_last_not_of(kBlanks) + 1 - begin));
    current.clear();
  };
  bool quoted = false;
  for (std::size_t at = 0; at < script.size(); ++at) {
    if (!quoted && script.substr(at, 2) == "--") {
      at = std::min(script.find('\n', at), script.size() - 1);
      current += '\n';
    } else if (!quoted && script[at] == ';') {
      finish();
    } else {
      if (script[at] == '\'') quoted = !quoted;
      current += script[at];
    }
  }
  finish();
  return statements;
}

}  // namespace quor
