#include "host/store/database.h"

#include <iostream>

#include "host/store/connection.h"
#include "host/store/tables/value_ranges.h"

namespace quor {

Database::Database(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Database::~Database() = default;

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
  throw StoreError(StoreFault::kNoFreeIds, "naujiems įrašams nebėra laisvų numerių (didžiausias ID – " +
                                               std::to_string(kLast) + "): „" + name() + "“");
}

void Database::copy_into(const std::string& path) { connection_->copy_into(path); }

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
    throw StoreError(StoreFault::kOutOfTurn, "įrašymas jau baigtas: „" + database_.name() + "“");
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
