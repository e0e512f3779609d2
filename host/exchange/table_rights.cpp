#include "host/exchange/table_rights.h"

#include <algorithm>
#include <iterator>

#include "host/store/object_codes.h"

namespace quor {

namespace {

enum class Import { kByRight, kByAdministrator };

struct TableRights {
  std::string_view table;
  const char* about;  // the object type whose rights decide; null: the administrator's
  Import import = Import::kByRight;
};

constexpr TableRights kTableRights[] = {
    {"departments", kDepartmentType},
    {"employees", kEmployeeType},
    {"constant_types", kConstantType},
    {"constant_values", kConstantType},
    {"indications", kSettingsType},
    {"salary_codes", kSettingsType},
    {"categories", kCategoryType},
    {"category_rows", kCategoryType},
    {"settings", kSettingsType},
    {"settings_rows", kSettingsType},
    {"experience", kEmployeeType},
    {"extra_charges", kPersonalChargeType},
    {"positions", kSalaryExtensionType},
    {"users", nullptr},
    {"rights", nullptr},
    {"month_norms", kSalaryExtensionType},
    {"worked_time", kSalaryExtensionType},
    {"documents", kSalaryExtensionType, Import::kByAdministrator},
    {"time_rows", kSalaryExtensionType, Import::kByAdministrator},
    {"salary_rows", kSalaryExtensionType, Import::kByAdministrator},
    {"document_positions", kSalaryExtensionType, Import::kByAdministrator},
    {"document_settings", kSalaryExtensionType, Import::kByAdministrator},
    {"month_faults", kSalaryExtensionType, Import::kByAdministrator},
    {"month_closings", kSalaryExtensionType, Import::kByAdministrator},
    {"closed_months", kSalaryExtensionType, Import::kByAdministrator},
};

const TableRights* find(const StoredTable& table) {
  const auto* const found = std::find_if(std::begin(kTableRights), std::end(kTableRights),
                                         [&](const TableRights& each) { return each.table == table.name; });
  return found == std::end(kTableRights) ? nullptr : found;
}

std::string with_table(const char* verb, const StoredTable& table) {
  return std::string(verb) + " lentelės „" + std::string(table.name) + "“";
}

}  // namespace

bool is_guarded(const StoredTable& table) { return find(table) != nullptr; }

void require_export_right(RightsGuard& guard, const StoredTable& table) {
  const TableRights* const rights = find(table);
  const std::string what = with_table("išvesti", table);
  if (rights == nullptr || rights->about == nullptr) {
    guard.require_administrator(what);
  } else {
    guard.require_view(rights->about, what);
  }
}

void require_import_right(RightsGuard& guard, const StoredTable& table) {
  const TableRights* const rights = find(table);
  const std::string what = with_table("įkelti", table);
  if (rights == nullptr || rights->about == nullptr || rights->import == Import::kByAdministrator) {
    guard.require_administrator(what);
    return;
  }
  for (const UserRight right : {UserRight::kCreate, UserRight::kWrite}) {
    guard.require_right(right, rights->about, what);
  }
}

}  // namespace quor
