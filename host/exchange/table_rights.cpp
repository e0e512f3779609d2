#include "host/exchange/table_rights.h"

namespace quor {

namespace {

std::string with_table(const char* verb, const StoredTable& table) {
  return std::string(verb) + " lentelės „" + std::string(table.name) + "“";
}

}  // namespace

void require_export_right(RightsGuard& guard, const StoredTable& table) {
  const std::string what = with_table("išvesti", table);
  if (table.about == nullptr) {
    guard.require_administrator(what);
  } else {
    guard.require_view(table.about, what);
  }
}

void require_import_right(RightsGuard& guard, const StoredTable& table) {
  const std::string what = with_table("įkelti", table);
  if (table.about == nullptr || table.result_of_months) {
    guard.require_administrator(what);
    return;
  }
  for (const UserRight right : {UserRight::kCreate, UserRight::kWrite}) {
    guard.require_right(right, table.about, what);
  }
}

}  // namespace quor
