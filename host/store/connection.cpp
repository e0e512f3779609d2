#include "host/store/connection.h"

#include <chrono>
#include <soci/postgresql/soci-postgresql.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include "host/store/addresses.h"
#include "host/store/failures.h"
#include "platform/data/error.h"

namespace quor {
namespace {

// How long a statement waits for another program before it gives up with kLocked.
constexpr int kPatienceMilliseconds = 5000;
// Pages of the file kept in memory, in KiB: random GUIDs of a large company would else be read again and again.
constexpr int kCacheKibibytes = 64 * 1024;

// Opens by `connect`; a server that is not to be reached is a StoreError.
template <typename Connect>
void reach(const std::string& name, const std::string& connect_text, const Connect& connect) {
  const auto begun = std::chrono::steady_clock::now();
  try {
    connect();
  } catch (const soci::soci_error&) {
    throw unreachable(name, connect_text,
                      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begun));
  }
}

// (The sanitizer cannot look at the backend's class: its library keeps the type information to itself.)
[[gnu::no_sanitize("vptr")]] sqlite_api::sqlite3* handle_of(soci::session& session) {
  return static_cast<soci::sqlite3_session_backend*>(session.get_backend())->conn_;
}

// SQLite ends a transaction by itself when the disk is full or fails: nothing is left to roll back then.
bool has_ended_by_itself(soci::session& session) { return sqlite_api::sqlite3_get_autocommit(handle_of(session)) != 0; }

}  // namespace

Bindings::Bindings(const std::vector<Variant>& values) {
  for (const Variant& value : values) {
    Value& bound = values_.emplace_back();
    bound.name = "p" + std::to_string(values_.size() - 1);
    switch (value.kind()) {
      case Variant::Kind::kEmpty:
      case Variant::Kind::kNull:
        bound.indicator = soci::i_null;
        break;
      case Variant::Kind::kBool:
        bound.value = value.to_bool() ? 1LL : 0LL;
        break;
      case Variant::Kind::kInt16:
      case Variant::Kind::kInt32:
        bound.value = static_cast<long long>(value.to_int32());
        break;
      case Variant::Kind::kDouble:
        bound.value = value.to_double();
        break;
      case Variant::Kind::kDate:
        bound.value = static_cast<long long>(value.to_date().without_time().serial());
        break;
      case Variant::Kind::kText:
        bound.value = value.to_text();
        break;
      default:
        throw Error(ErrorKind::kTypeMismatch,
                    "tokios reikšmės duomenų bazė nelaiko: " + std::string(kind_name(value.kind())));
    }
  }
}

void Bindings::attach(soci::statement& statement) {
  for (Value& bound : values_) {
    std::visit([&](auto& value) { statement.exchange(soci::use(value, bound.indicator, bound.name)); }, bound.value);
  }
}

Connection::Connection(const soci::backend_factory& backend, const std::string& connect_text, std::string shown_name)
    : session(backend, connect_text),
      name(std::move(shown_name)),
      on_server(session.get_backend_name() == "postgresql") {}

std::unique_ptr<Connection> Connection::to_memory() {
  auto connection = std::make_unique<Connection>(soci::sqlite3, "db=:memory:", ":memory:");
  connection->command("PRAGMA foreign_keys=ON");
  return connection;
}

// The roll-back journal is kept: after a kill the next program to open the file undoes the half-done transaction, and
// between transactions a company is one file, which people copy.
std::unique_ptr<Connection> Connection::to_file(const std::string& path, const std::string& read_only_reason) {
  std::unique_ptr<Connection> connection;
  try {
    connection = std::make_unique<Connection>(soci::sqlite3, "db=" + existing_file_uri(path, !read_only_reason.empty()),
                                              shown_address(path));
  } catch (const soci::soci_error&) {
    throw StoreError(StoreFault::kMissing, "nepavyko atverti įmonės failo „" + shown_address(path) + "“");
  }
  connection->read_only_reason = read_only_reason;
  connection->prepare_file_session();
  return connection;
}

// Nobody else knows the file, and if anything fails it is thrown away whole: it goes to the disk once, at the end.
std::unique_ptr<Connection> Connection::to_new_file(const std::string& path, const std::string& shown_name) {
  auto connection = std::make_unique<Connection>(soci::sqlite3, "db=" + existing_file_uri(path, false), shown_name);
  connection->prepare_file_session();
  connection->command("PRAGMA synchronous=OFF");
  connection->command("PRAGMA journal_mode=MEMORY");
  return connection;
}

std::unique_ptr<Connection> Connection::to_server(const std::string& address) {
  const ServerAddress server = parse_server_address(address);
  std::unique_ptr<Connection> connection;
  reach(server.shown, server.connect_text,
        [&] { connection = std::make_unique<Connection>(soci::postgresql, server.connect_text, server.shown); });
  connection->server_text_ = server.connect_text;
  connection->prepare_server_session();
  return connection;
}

// What a commit has promised must stand after a loss of power too: EXTRA syncs the folder as well when the journal
// goes, which FULL leaves out; a transaction that the user was told of could then be undone by its own journal.
void Connection::prepare_file_session() {
  command("PRAGMA busy_timeout=" + std::to_string(kPatienceMilliseconds));
  command("PRAGMA cache_size=-" + std::to_string(kCacheKibibytes));
  command("PRAGMA synchronous=EXTRA");
  command("PRAGMA foreign_keys=ON");
}

void Connection::prepare_server_session() {
  command("SET client_encoding = 'UTF8'");
  command("SET client_min_messages = warning");
  command("SET lock_timeout = " + std::to_string(kPatienceMilliseconds));
}

// What was open on the old connection is rolled back: by the server that has lost it, or, in a file, by closing.
bool Connection::reconnect() {
  if (state != State::kOpen && state != State::kBroken) return false;
  if (on_server) {
    if (state != State::kBroken && !is_lost()) return false;
    reach(name, server_text_, [&] { session.reconnect(); });
    state = State::kOpen;
    prepare_server_session();
    return true;
  }
  if (state != State::kBroken || is_memory_address(name)) return false;
  try {
    session.reconnect();
  } catch (const soci::soci_error&) {
    throw StoreError(StoreFault::kMissing, "nepavyko atverti įmonės failo „" + name + "“");
  }
  state = State::kOpen;
  prepare_file_session();
  return true;
}

void Connection::command(const std::string& sql) {
  run([&](soci::session& database) { database << sql; });
}

std::optional<std::int64_t> Connection::whole_number(const std::string& sql, const std::vector<Variant>& values) {
  return run([&](soci::session& database) -> std::optional<std::int64_t> {
    Bindings bindings(values);
    long long number = 0;
    soci::indicator indicator = soci::i_ok;
    soci::statement statement(database);
    statement.alloc();
    statement.prepare(sql, soci::details::st_one_time_query);
    bindings.attach(statement);
    statement.exchange(soci::into(number, indicator));
    statement.define_and_bind();
    if (!statement.execute(true) || indicator == soci::i_null) return std::nullopt;
    return number;
  });
}

void Connection::copy_into(const std::string& path) {
  require_no_transaction();
  (void)whole_number("VACUUM INTO :p0", {path});
}

void Connection::become(Connection& from) {
  require_no_transaction();
  if (!read_only_reason.empty()) throw StoreError(StoreFault::kNotWritable, read_only_reason);
  run([&](soci::session& database) {
    auto* const work = sqlite_api::sqlite3_backup_init(handle_of(database), "main", handle_of(from.session), "main");
    if (work != nullptr) sqlite_api::sqlite3_backup_step(work, -1);
    const int result =
        work != nullptr ? sqlite_api::sqlite3_backup_finish(work) : sqlite_api::sqlite3_errcode(handle_of(database));
    if (result != SQLITE_OK) throw soci::sqlite3_soci_error("", result);
  });
}

void Connection::require_no_transaction() const {
  if (state == State::kTransaction || state == State::kDoomed) {
    throw StoreError(StoreFault::kOutOfTurn, "ankstesnis įrašymas dar nebaigtas: „" + name + "“");
  }
  if (state == State::kReading) {
    throw StoreError(StoreFault::kOutOfTurn, "duomenys dar skaitomi, rašyti negalima: „" + name + "“");
  }
}

void Connection::begin() {
  require_no_transaction();
  if (!read_only_reason.empty()) throw StoreError(StoreFault::kNotWritable, read_only_reason);
  // Immediate: two programs that read first and write later would else fail each other at the write.
  command(on_server ? "BEGIN" : "BEGIN IMMEDIATE");
  state = State::kTransaction;
  if (on_server) lock_for_writing();
}

// One writer at a time on a server too: what a transaction has read is then what it writes on. The lock goes with the
// transaction. A company that is being made has no row yet; two that make it meet at its first table.
void Connection::lock_for_writing() {
  try {
    if (has_company()) command("SELECT id FROM company FOR UPDATE");
  } catch (...) {
    roll_back();
    throw;
  }
}

bool Connection::has_company() {
  if (!has_company_) {
    has_company_ = whole_number(
                       "SELECT COUNT(*) FROM information_schema.tables"
                       " WHERE table_schema = current_schema() AND table_name = 'company'")
                       .value_or(0) > 0;
  }
  return has_company_;
}

// On a server every statement of a repeatable read sees the same state; in a file, what the first read has locked.
void Connection::begin_reading() {
  require_no_transaction();
  command(on_server ? "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY" : "BEGIN");
  state = State::kReading;
  if (on_server) return;
  try {
    command("PRAGMA query_only=ON");
  } catch (...) {
    end_reading();
    throw;
  }
}

void Connection::end_reading() {
  try {
    if (!on_server) command("PRAGMA query_only=OFF");
    command("ROLLBACK");
    state = State::kOpen;
  } catch (...) {
    state = State::kBroken;
    throw;
  }
}

void Connection::commit(Writes writes) {
  // The server would take a commit after a failed statement and silently roll back.
  if (state == State::kDoomed) {
    throw StoreError(StoreFault::kFailed, "pakeitimai atšaukti, nes vienas iš įrašymų nepavyko: „" + name + "“");
  }
  command("UPDATE company SET change_count = change_count + 1");
  if (writes == Writes::kPayInputs) command("UPDATE counters SET value = value + 1 WHERE name = 'pay_inputs'");
  command("COMMIT");
  state = State::kOpen;
}

void Connection::roll_back() {
  if (!on_server && has_ended_by_itself(session)) {
    state = State::kOpen;
    return;
  }
  try {
    command("ROLLBACK");
    state = State::kOpen;
  } catch (...) {
    state = State::kBroken;
    throw;
  }
}

void Connection::doom() {
  if (state == State::kTransaction) state = State::kDoomed;
}

}  // namespace quor
