#include "host/company/rights.h"

#include <algorithm>
#include <iterator>

#include "frame/contract/quor_header_security.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

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

bool holds(const RegisteredGroup& group, const std::string& asked) {
  return group.key == asked || std::count(group.objects.begin(), group.objects.end(), asked) > 0;
}

bool is_there(Database& database, const char* from_where, const std::vector<Variant>& values = {}) {
  return database.read(std::string("SELECT id FROM ") + from_where + " LIMIT 1", {{"ID", FieldType::kInt32}}, values)
             ->RecordCount() > 0;
}

struct Viewed {
  ViewedWith with;  // the type itself first
  const char* plural;
};

constexpr Viewed kViewed[] = {
    {{kDepartmentType, kEmployeeType, kSalaryExtensionType}, "padalinių"},
    {{kEmployeeType, kSalaryExtensionType}, "darbuotojų"},
    {{kPersonalChargeType, kSalaryExtensionType}, "darbuotojų priedų"},
    {{kConstantType, kSettingsType, kSalaryExtensionType}, "darbo užmokesčio konstantų"},
    {{kSalaryExtensionType}, "darbo užmokesčio"},
    {{kWorkedTimeType}, "darbo laiko"},
    {{kMonthType}, "mėnesių"},
    {{kNormType}, "mėnesių normų"},
    {{kTimeCodeType}, "laiko kodų"},
    {{kSalaryCodeType}, "darbo užmokesčio kodų"},
    {{kCategoryType}, "pareigybių kategorijų"},
    {{kSettingsType}, "valstybės tarnautojų nustatymų"},
};

const Viewed* find_viewed(std::string_view object_type) {
  const auto* const found = std::find_if(std::begin(kViewed), std::end(kViewed),
                                         [&](const Viewed& viewed) { return viewed.with.front() == object_type; });
  return found == std::end(kViewed) ? nullptr : found;
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
      if (group->key == asked && !group->object_type.empty()) components.insert(components.begin(), group->object_type);
      add(group->key);
      add(layout->key);
      add(library_component(layout->code));
      return components;
    }
  }
  const auto type = registrations.types.find(asked);
  for (const auto& layout : registrations.layouts) {
    const bool registered_with_it = type != registrations.types.end() && type->second.registry == layout->registry;
    if (layout->key != asked && !registered_with_it) continue;
    add(layout->key);
    add(library_component(layout->code));
    break;
  }
  return components;
}

std::string deciding_type(const std::string& object_type) {
  if (object_type == kPersonalChargeType) return kEmployeeType;
  if (object_type == kWorkedTimeType || object_type == kMonthType || object_type == kNormType) {
    return kSalaryExtensionType;
  }
  return object_type == kTimeCodeType || object_type == kSalaryCodeType ? kSettingsType : object_type;
}

std::string refusal_text(Company& company, const std::string& user, const std::string& what) {
  std::string text = "Neturite teisės " + what + ".";
  if (grants_of(company, user)->RecordCount() == 0) text += " Naudotojo „" + user + "“ įmonėje nėra.";
  return text;
}

ViewedWith viewed_with(std::string_view object_type) {
  const Viewed* const viewed = find_viewed(object_type);
  return viewed == nullptr ? ViewedWith{object_type} : viewed->with;
}

bool any_allowed(const ViewedWith& types, const std::function<bool(const std::string&)>& allowed) {
  // The first is asked also without a name: a list of no type is refused as that, not for a right.
  return allowed(std::string(types.front())) || std::any_of(types.begin() + 1, types.end(), [&](std::string_view type) {
           return !type.empty() && allowed(std::string(type));
         });
}

bool may_view(QuorApplication& application, const ViewedWith& types) {
  return any_allowed(types, [&](const std::string& type) { return application.HasRight(UserRight::kView, type, 0); });
}

const char* viewed_plural(std::string_view object_type) {
  const Viewed* const viewed = find_viewed(object_type);
  return viewed == nullptr ? "tokių duomenų" : viewed->plural;
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

void require_administrator_among_users(Database& database) {
  if (is_there(database, "users WHERE name = ''")) {
    throw Error(ErrorKind::kRefused, "Naudotojas neturi vardo.");
  }
  if (is_there(database, "users") && !is_there(database, "users WHERE administrator <> 0")) {
    throw Error(ErrorKind::kRefused, "Bent vienas naudotojas turi būti administratorius.");
  }
}

bool may_administer(Company& company, const std::string& user) {
  Database& database = company.database();
  return !is_there(database, "users") || is_there(database, "users WHERE name = :p0 AND administrator <> 0", {user});
}

}  // namespace quor
