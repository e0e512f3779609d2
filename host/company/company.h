// One opened company: its database, and what was read from it and still holds.
//
// A record set that many requests share is read once, kept, and handed out as clones until a write touches the
// company. An edge of the program (a command, a user's action) calls `refresh` first; within it, no table is read
// twice.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <typeindex>
#include <unordered_map>

#include "host/store/database.h"

namespace quor {

class Company {
 public:
  explicit Company(std::unique_ptr<Database> database);

  Database& database() { return *database_; }

  // Forgets what was read when anybody has written to the company since, and mends a connection that the server has
  // dropped. Throws StoreError and forgets nothing while the company is not to be reached.
  void refresh();
  // Forgets it all: whoever has just written says so, and the next request sees what was written.
  void forget() { kept_.clear(); }

  // The kept record set of that name, read by `read` when there is none or a caller has edited it. The set itself
  // is nobody's to walk: take a clone.
  using Reader = std::function<std::shared_ptr<Recordset>()>;
  std::shared_ptr<Recordset> kept(const std::string& name, const Reader& read);

  // A service's own memory of this company, empty at first. It outlives every write: the service knows what still
  // holds.
  template <typename Memory>
  Memory& memory() {
    std::shared_ptr<void>& entry = memories_[std::type_index(typeid(Memory))];
    if (!entry) entry = std::make_shared<Memory>();
    return *static_cast<Memory*>(entry.get());
  }

 private:
  std::int64_t asked_change_count();

  std::unique_ptr<Database> database_;
  std::int64_t change_count_;
  std::unordered_map<std::string, std::shared_ptr<Recordset>> kept_;
  std::unordered_map<std::type_index, std::shared_ptr<void>> memories_;
};

}  // namespace quor
