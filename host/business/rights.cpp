#include "host/business/rights.h"

#include <algorithm>

namespace quor {

namespace {

// One row a grant of the user, or one without a component for a user who has none.
const std::vector<FieldInfo> kUserFields = {{"Administrator", FieldType::kBool}, {"Component", FieldType::kText},
                                            {"View", FieldType::kBool},          {"Create", FieldType::kBool},
                                            {"Delete", FieldType::kBool},        {"Print", FieldType::kBool},
                                            {"Write", FieldType::kBool}};
constexpr FieldHandle kAdministrator{0}, kComponent{1};

constexpr FieldHandle field_of(UserRight right) { return {2 + static_cast<std::size_t>(right)}; }

bool has_users(Company& company) {
  const auto count = company.kept("Users", [&] {
    return company.database().read("SELECT COUNT(*) FROM users", {{"Count", FieldType::kInt32}});
  });
  return count->Clone()->int32(FieldHandle{0}) > 0;
}

std::shared_ptr<Recordset> grants_of(Company& company, const std::string& user) {
  return company
      .kept("Rights of " + user,
            [&] {
              return company.database().read(
                  "SELECT u.administrator, r.component, r.can_view, r.can_create, r.can_delete, r.can_print,"
                  " r.can_write FROM users u LEFT JOIN rights r ON r.user_id = u.id WHERE u.name = :p0",
                  kUserFields, {user});
            })
      ->Clone();
}

std::string library_key(const RegisteredLayout& layout) { return "DLL|" + layout.code; }

bool holds(const RegisteredGroup& group, const std::string& asked) {
  return group.key == asked || std::count(group.objects.begin(), group.objects.end(), asked) > 0;
}

}  // namespace

std::vector<std::string> deciding_components(const Registrations& registrations, const std::string& asked) {
  std::vector<std::string> components = {asked};
  const auto add = [&](const std::string& key) {
    if (key != asked) components.push_back(key);
  };
  for (const auto& layout : registrations.layouts) {
    for (const auto& group : layout->groups) {
      if (!holds(*group, asked)) continue;
      add(group->key);
      add(layout->key);
      add(library_key(*layout));
      return components;
    }
  }
  const auto type = registrations.types.find(asked);
  for (const auto& layout : registrations.layouts) {
    const bool registered_with_it = type != registrations.types.end() && type->second.registry == layout->registry;
    if (layout->key != asked && !registered_with_it) continue;
    add(layout->key);
    add(library_key(*layout));
    break;
  }
  return components;
}

bool has_right(Company& company, const std::string& user, UserRight right, const std::vector<std::string>& components) {
  if (!has_users(company)) return true;
  const auto grants = grants_of(company, user);
  if (grants->RecordCount() == 0) return false;
  if (grants->int32(kAdministrator) != 0) return true;
  for (const std::string& component : components) {
    for (grants->MoveFirst(); !grants->Eof(); grants->MoveNext()) {
      if (grants->text(kComponent) == component) return grants->int32(field_of(right)) != 0;
    }
  }
  return false;
}

}  // namespace quor
