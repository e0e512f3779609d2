#include "host/store/database.h"

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "host/store/addresses.h"
#include "host/store/connection.h"
#include "host/store/schema.h"
#include "host/store/stored_sort_keys.h"
#include "host/store/value_ranges.h"
#include "host/store/whole_file.h"

namespace quor {

Database::Database(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Database::~Database() = default;

std::unique_ptr<Database> Database::open(const std::string& address) {
  if (is_memory_address(address)) return create(address);
  std::unique_ptr<Database> database;
  if (is_server_address(address)) {
    database.reset(new Database(Connection::to_server(address)));
  } else {
    refuse_mistaken_address(address);
    const std::string read_only_reason = require_company_file(address);
    database.reset(new Database(Connection::to_file(address, read_only_reason)));
  }
  if (!holds_company(*database)) {
    throw StoreError(StoreFault::kNotACompany,
                     (is_server_address(address) ? "šioje bazėje nėra įmonės: „" : "tai ne įmonės failas: „") +
                         database->name() + "“");
  }
  migrate(*database);
  renew_sort_keys(*database);
  return database;
}

namespace {

void make_whole(Database& database, const Database::Fill& fill) {
  Transaction whole(database);
  make_schema(database);
  note_sort_keys(database);
  if (fill) fill(database);
  whole.commit();
}

StoreError already_there(const std::string& shown) {
  return {StoreFault::kAlreadyThere, "įmonė jau yra: „" + shown + "“"};
}

// Why no file could be made at `address`.
StoreError not_made(const std::string& address, int error) {
  const std::string quoted = "„" + shown_address(address) + "“";
  switch (error) {
    case EEXIST:
      return {StoreFault::kAlreadyThere, "toks failas jau yra: " + quoted};
    case ENOENT:
    case ENOTDIR:
      return {StoreFault::kMissing, "nėra aplanko įmonės failui: " + quoted};
    case EACCES:
    case EPERM:
    case EROFS:
      return {StoreFault::kNotWritable, "į aplanką negalima rašyti: " + quoted};
    default:
      return {StoreFault::kFailed, "nepavyko sukurti įmonės failo: " + quoted + ": " + reason_of(error)};
  }
}

// A journal without its file would be played into the new one.
void require_free_place(const std::string& address) {
  refuse_mistaken_address(address);
  for (const std::string& place : {address, address + "-journal", address + "-wal"}) {
    std::error_code none;
    if (std::filesystem::exists(std::filesystem::symlink_status(place, none))) throw not_made(place, EEXIST);
  }
  refuse_company_files(address);
}

}  // namespace

std::unique_ptr<Database> Database::create_file(const std::string& address, const Fill& fill) {
  require_free_place(address);
  try {
    FileBeside file(address);
    {
      Database made(Connection::to_new_file(file.path(), shown_address(address)));
      make_whole(made, fill);
    }
    if (!file.take_free_place()) throw not_made(address, EEXIST);
  } catch (const std::system_error& error) {
    throw not_made(address, error.code().value());
  }
  return std::unique_ptr<Database>(new Database(Connection::to_file(address)));
}

std::unique_ptr<Database> Database::create(const std::string& address, const Fill& fill) {
  if (!is_memory_address(address) && !is_server_address(address)) return create_file(address, fill);
  std::unique_ptr<Database> database(
      new Database(is_server_address(address) ? Connection::to_server(address) : Connection::to_memory()));
  if (holds_company(*database)) throw already_there(database->name());
  try {
    make_whole(*database, fill);
  } catch (const StoreError&) {
    // Two programs that make a company in one database meet at its first table; the second finds it made.
    if (holds_company(*database)) throw already_there(database->name());
    throw;
  }
  return database;
}

const std::string& Database::name() const { return connection_->name; }
bool Database::may_write() const { return connection_->read_only_reason.empty(); }
bool Database::on_server() const { return connection_->on_server; }

std::int64_t Database::execute(const std::string& sql, const std::vector<Variant>& values) {
  return connection_->run([&](soci::session& session) {
    Bindings bindings(values);
    soci::statement statement(session);
    statement.alloc();
    statement.prepare(sql, soci::details::st_one_time_query);
    bindings.attach(statement);
    statement.define_and_bind();
    statement.execute(true);
    return static_cast<std::int64_t>(statement.get_affected_rows());
  });
}

std::int32_t Database::reserve_ids(std::string_view table, std::int32_t count) {
  // One statement, so that two programs never get the same numbers.
  constexpr auto kLast = static_cast<std::int32_t>(kStoredId.high);
  const auto next = connection_->whole_number(
      "INSERT INTO next_ids (table_name, next_id) VALUES (:p0, 1 + :p1) "
      "ON CONFLICT (table_name) DO UPDATE SET next_id = next_ids.next_id + :p1 WHERE next_ids.next_id <= :p2 "
      "RETURNING next_id",
      {table, count, kLast + 1 - count});
  if (next) return static_cast<std::int32_t>(*next - count);
  throw StoreError(StoreFault::kFailed, "naujiems įrašams nebėra laisvų numerių (didžiausias ID – " +
                                            std::to_string(kLast) + "): „" + name() + "“");
}

bool Database::reconnect() { return connection_->reconnect(); }

std::int64_t Database::change_count() {
  return connection_->whole_number("SELECT change_count FROM company").value_or(0);
}

std::int64_t Database::pay_inputs_count() {
  return connection_->whole_number("SELECT value FROM counters WHERE name = 'pay_inputs'").value_or(0);
}

std::uint64_t Database::statements() const { return connection_->statements; }
void Database::set_fault(std::function<void(std::uint64_t)> fault) { connection_->fault = std::move(fault); }

Transaction::Transaction(Database& database, Writes writes) : database_(database), writes_(writes) {
  database_.connection_->begin();
}

Transaction::~Transaction() {
  if (state_ == State::kOpen) roll_back();
}

void Transaction::commit() {
  if (state_ != State::kOpen) {
    throw StoreError(StoreFault::kFailed, "įrašymas jau baigtas: „" + database_.name() + "“");
  }
  try {
    database_.connection_->commit(writes_);
    state_ = State::kCommitted;
  } catch (...) {
    roll_back();
    throw;
  }
}

void Transaction::roll_back() noexcept {
  try {
    database_.connection_->roll_back();
    state_ = State::kRolledBack;
  } catch (const std::exception& error) {
    state_ = State::kFailed;
    std::clog << "quor: nepavyko atšaukti pakeitimų: " << error.what() << '\n';
  } catch (...) {
    state_ = State::kFailed;
    std::clog << "quor: nepavyko atšaukti pakeitimų\n";
  }
}

Snapshot::Snapshot(Database& database) : database_(database) { database_.connection_->begin_reading(); }

Snapshot::~Snapshot() {
  try {
    database_.connection_->end_reading();
  } catch (const std::exception& error) {
    std::clog << "quor: nepavyko baigti skaitymo: " << error.what() << '\n';
  }
}

}  // namespace quor
