#include "host/application/user_rights.h"

#include <set>

#include "host/company/rights.h"
#include "host/requests/object_lists.h"
#include "host/store/object_codes.h"
#include "host/store/tables/statements.h"
#include "platform/data/error.h"

namespace quor {

namespace {

const std::vector<FieldInfo> kFields = {{"Name", FieldType::kText},      {"Administrator", FieldType::kInt32},
                                        {"Component", FieldType::kText}, {"View", FieldType::kInt32},
                                        {"Create", FieldType::kInt32},   {"Delete", FieldType::kInt32},
                                        {"Print", FieldType::kInt32},    {"Write", FieldType::kInt32}};
constexpr FieldHandle kName{0}, kAdministrator{1}, kComponent{2};
constexpr std::size_t kFirstRight = 3;

void require_each_once(const std::vector<CompanyUser>& users) {
  std::set<std::string> names;
  for (const CompanyUser& user : users) {
    if (!names.insert(user.name).second) {
      throw Error(ErrorKind::kAlreadyThere, "Naudotojas „" + user.name + "“ įrašytas du kartus.");
    }
  }
}

constexpr const char* kRightColumns[] = {"can_view", "can_create", "can_delete", "can_print", "can_write"};

void insert_rights(Database& database, std::int32_t id, const CompanyUser& user) {
  for (const auto& [component, flags] : user.rights) {
    std::vector<ColumnValue> values = {{"user_id", id}, {"component", component}};
    for (std::size_t i = 0; i < flags.size(); ++i) values.push_back({kRightColumns[i], flags[i] ? 1 : 0});
    insert_row(database, "rights", values);
  }
}

}  // namespace

std::vector<CompanyUser> company_users(Application& application) {
  application.guard().require_administrator("tvarkyti naudotojų ir jų teisių");
  const auto rows = application.company().database().read(
      "SELECT u.name, u.administrator, r.component, r.can_view, r.can_create, r.can_delete, r.can_print, r.can_write"
      " FROM users u LEFT JOIN rights r ON r.user_id = u.id ORDER BY u.name, u.id, r.component",
      kFields);
  std::vector<CompanyUser> users;
  for (; !rows->Eof(); rows->MoveNext()) {
    const std::string name(rows->text(kName));
    if (users.empty() || users.back().name != name) users.push_back({name, rows->int32(kAdministrator) != 0});
    if (rows->is_null(kComponent)) continue;
    GrantedRights& flags = users.back().rights[std::string(rows->text(kComponent))];
    for (std::size_t i = 0; i < flags.size(); ++i) flags[i] = rows->int32(FieldHandle{kFirstRight + i}) != 0;
  }
  return users;
}

void store_company_users(Application& application, const std::vector<CompanyUser>& users) {
  application.guard().require_administrator("tvarkyti naudotojų ir jų teisių");
  require_each_once(users);
  Database& database = application.company().database();
  Transaction transaction(database, Writes::kOther);
  database.execute("DELETE FROM rights");
  database.execute("DELETE FROM users");
  for (const CompanyUser& user : users) {
    const std::int32_t id = database.reserve_ids("users");
    insert_row(database, "users", {{"id", id}, {"name", user.name}, {"administrator", user.administrator ? 1 : 0}});
    insert_rights(database, id, user);
  }
  require_administrator_among_users(database);
  transaction.commit();
  application.company().forget();
}

std::vector<SecurityComponent> grantable_components(Application& application) {
  std::vector<SecurityComponent> components = application.security_components();
  for (const char* type : {kEmployeeType, kDepartmentType, kConstantType}) {
    components.push_back({.ParentKey = "", .Key = type, .Caption = listed_caption(type), .Kind = kLayoutComponent});
  }
  return components;
}

}  // namespace quor
