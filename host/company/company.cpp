#include "host/company/company.h"

namespace quor {

Company::Company(std::unique_ptr<Database> database)
    : database_(std::move(database)), change_count_(database_->change_count()) {}

std::int64_t Company::asked_change_count() {
  try {
    return database_->change_count();
  } catch (const StoreError&) {
    if (!database_->reconnect()) throw;
    return database_->change_count();
  }
}

void Company::refresh() {
  const std::int64_t now = asked_change_count();
  if (now == change_count_) return;
  kept_.clear();
  change_count_ = now;
}

std::shared_ptr<Recordset> Company::kept(const std::string& name, const Reader& read) {
  std::shared_ptr<Recordset>& entry = kept_[name];
  if (!entry || entry->has_changes()) entry = read();
  return entry;
}

}  // namespace quor
