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
std::vector<Backend> backends();
inline void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }

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

std::int32_t count(Database& database, const std::string& from, const std::vector<Variant>& values = {});

}  // namespace quor
