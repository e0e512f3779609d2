// Users of a company and what is granted to each, as an administrator sees and changes them (see rights.h for what the
// grants mean).
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "host/business/application.h"
#include "host/business/company.h"

namespace quor {

using GrantedRights = std::array<bool, 5>;  // in the order of UserRight

struct CompanyUser {
  std::string name;
  bool administrator = false;
  std::map<std::string, GrantedRights> rights = {};  // by component; no entry: the enclosing component decides
};

// In the order of their names. Throws Error when the application's user is no administrator, StoreError.
std::vector<CompanyUser> company_users(Application& application);

// Makes these the users of the company, all at once. Throws Error and writes nothing when the application's user is no
// administrator, when a name is empty or there twice, or when no user would be one. Throws StoreError.
void store_company_users(Application& application, const std::vector<CompanyUser>& users);

// Inside the transaction that has written users: throws Error when one has no name, or when there are some and no
// administrator among them: nobody could change them any more.
void require_administrator_among_users(Database& database);

// Whether the user may change users and rights: in a company without users anybody may.
bool may_administer(Company& company, const std::string& user);

}  // namespace quor
