// A fresh place for a company, on each database that the store runs on; gone with the object.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/store/database.h"

namespace quor {

class CompanyPlace {
 public:
  virtual ~CompanyPlace() = default;
  virtual std::string address() const = 0;  // nothing stands there yet
};

struct Backend {
  const char* name;
  std::unique_ptr<CompanyPlace> (*make_place)();
};
std::vector<Backend> backends();  // SQLite, PostgreSQL
inline void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }
// Runs a suite of tests with a Backend as their parameter on every database.
#define ON_EVERY_DATABASE(Suite)                                           \
  INSTANTIATE_TEST_SUITE_P(On, Suite, testing::ValuesIn(quor::backends()), \
                           [](const auto& each) { return each.param.name; })

// The address of any database of the test run's server; `user` may have a password, "user:password".
std::string server_address(const std::string& user, const std::string& database);

// A folder of its own for files.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  std::string path(const std::string& name) const { return folder_ + "/" + name; }
  // Names and contents of all files, to see that nothing changed.
  std::string contents() const;

 private:
  std::string folder_;
};

// The fault and text of the StoreError that `action` throws; no fault when it throws none.
struct Refusal {
  std::optional<StoreFault> fault;
  std::string text;
};
template <typename Action>
Refusal refusal_of(Action&& action) {
  try {
    action();
  } catch (const StoreError& error) {
    return {error.fault(), error.what()};
  }
  return {};
}

// The n-th statement from now fails, and no other, until the fault is taken away.
void fail_one(Database& database, std::uint64_t n);

std::int32_t count(Database& database, const std::string& from, const std::vector<Variant>& values = {});

}  // namespace quor
