#include "host/store/backup.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "host/store/addresses.h"
#include "host/store/connection.h"
#include "host/store/free_place.h"
#include "host/store/whole_file.h"

namespace quor {

namespace fs = std::filesystem;

namespace {

std::string in_quotes(const std::string& path) { return "„" + shown_address(path) + "“"; }

StoreError servers_business(const std::string& shown) {
  return {StoreFault::kRefused,
          "įmonės serveryje kopijas daro ir iš jų atkuria serverio priemonės (pg_dump, pg_restore): " + shown};
}

void refuse_server(const std::string& address) {
  if (is_server_address(address)) throw servers_business(in_quotes(address));
  refuse_mistaken_address(address);
}

std::string moment() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d-%H%M%S", &local)};
}

// Runs what makes a file at `place`, and tells in words what the system reports.
template <typename Make>
void making(const std::string& place, const Make& make) {
  try {
    make();
  } catch (const std::system_error& error) {
    throw not_made(place, error.code().value());
  }
}

// A new file of the copy's content with today's schema, held to be a sound company.
void bring_beside(const std::string& copy, const FileBeside& file) {
  require_company_file(copy);
  {
    const auto from = Connection::to_file(copy, "kopija tik skaitoma");
    const auto faults =
        from->whole_number("SELECT COUNT(*) FROM pragma_integrity_check(1) WHERE integrity_check <> 'ok'");
    if (faults.value_or(1) != 0) throw StoreError(StoreFault::kNotACompany, "kopija sugadinta: " + in_quotes(copy));
    from->copy_into(file.path());
  }
  try {
    (void)Database::open(file.path());
  } catch (const StoreError& error) {
    // Its text names the hidden file.
    if (error.fault() == StoreFault::kNotACompany)
      throw StoreError(StoreFault::kNotACompany, "tai ne įmonės kopija: " + in_quotes(copy));
    if (error.fault() == StoreFault::kNewerSchema)
      throw StoreError(StoreFault::kNewerSchema, "kopiją padarė naujesnė programa: " + in_quotes(copy));
    throw;
  }
}

// Whoever keeps what he has read by these counts must find both raised.
void raise_counts(const std::string& path, std::int64_t above) {
  const auto database = Database::open(path);
  Transaction transaction(*database);
  const auto raise = static_cast<double>(above);
  database->execute("UPDATE company SET change_count = change_count + CAST(:p0 AS INTEGER)", {raise});
  database->execute("UPDATE counters SET value = value + CAST(:p0 AS INTEGER) WHERE name = 'pay_inputs'", {raise});
  transaction.commit();
}

enum class Standing { kNothing, kCompany, kDamaged };

Standing what_stands(const std::string& company) {
  std::error_code none;
  if (!fs::exists(fs::symlink_status(company, none))) return Standing::kNothing;
  const std::string read_only_reason = require_company_file(company);
  if (!read_only_reason.empty()) throw StoreError(StoreFault::kNotWritable, read_only_reason);
  try {
    const auto connection = Connection::to_file(company);
    const auto tables = connection->whole_number("SELECT COUNT(*) FROM sqlite_master WHERE name = 'company'");
    if (tables.value_or(0) > 0) return Standing::kCompany;
  } catch (const StoreError& error) {
    if (error.fault() == StoreFault::kNotACompany) return Standing::kDamaged;
    throw;
  }
  throw StoreError(StoreFault::kNotACompany, "ten ne įmonė, o kita duomenų bazė: " + in_quotes(company));
}

// From a Database or a Connection.
template <typename Company>
void copy_to(Company& from, const std::string& place) {
  require_free_place(place);
  making(place, [&] {
    FileBeside file(place);
    from.copy_into(file.path());
    if (!file.take_free_place()) throw not_made(place, EEXIST);
  });
}

void replace_content(const std::string& company, const FileBeside& file, const std::string& kept) {
  const auto standing = Connection::to_file(company);
  copy_to(*standing, kept);
  const auto changes = standing->whole_number("SELECT change_count FROM company");
  raise_counts(file.path(), std::max<std::int64_t>(changes.value_or(0), 0));
  standing->become(*Connection::to_file(file.path()));
}

// Its journal goes along: it would be played into what comes.
void replace_damaged(const std::string& company, FileBeside& file, const std::string& kept) {
  fs::create_hard_link(company, kept);
  std::error_code none;
  if (fs::exists(company + "-journal", none)) fs::rename(company + "-journal", kept + "-journal");
  file.replace_target();
}

}  // namespace

std::string free_copy_name(const std::string& company, const std::string& mark) {
  const fs::path path(is_memory_address(company) || is_server_address(company) ? "įmonė.quor" : company);
  const std::string start = (path.parent_path() / path.stem()).string() + mark + "-" + moment();
  std::string name = start + ".quor";
  std::error_code none;
  for (int n = 2; fs::exists(fs::symlink_status(name, none)); ++n) name = start + "-" + std::to_string(n) + ".quor";
  return name;
}

void refuse_server_copies(Database& database) {
  if (database.on_server()) throw servers_business("„" + database.name() + "“");
}

void back_up(Database& database, const std::string& place) {
  refuse_server_copies(database);
  refuse_server(place);
  copy_to(database, place);
}

std::string restore_company(const std::string& company, const std::string& copy) {
  refuse_server(company);
  refuse_server(copy);
  if (same_place(company, copy))
    throw StoreError(StoreFault::kRefused, "tai pati įmonė, ne jos kopija: " + in_quotes(copy));
  require_company_file(copy);
  const Standing standing = what_stands(company);
  if (standing == Standing::kNothing) require_free_place(company);
  // Behind a link stands the file that is replaced.
  std::error_code none;
  const std::string target = standing == Standing::kNothing ? company : fs::canonical(company, none).string();
  std::string kept;
  making(company, [&] {
    FileBeside file(target);
    bring_beside(copy, file);
    if (standing == Standing::kNothing) {
      if (!file.take_free_place()) throw not_made(company, EEXIST);
      return;
    }
    kept = free_copy_name(target, "-prieš-atkūrimą");
    if (standing == Standing::kCompany) {
      replace_content(target, file, kept);
    } else {
      replace_damaged(target, file, kept);
    }
  });
  return kept;
}

}  // namespace quor
