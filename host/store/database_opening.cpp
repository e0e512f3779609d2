// How a company is opened where one stands, and made where none does.
#include <cerrno>
#include <system_error>

#include "host/store/addresses.h"
#include "host/store/connection.h"
#include "host/store/database.h"
#include "host/store/free_place.h"
#include "host/store/schema.h"
#include "host/store/stored_sort_keys.h"
#include "host/store/whole_file.h"

namespace quor {

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

}  // namespace

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

}  // namespace quor
