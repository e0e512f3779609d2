// Users of a company and what is granted to each, as an administrator sees and changes them (see rights.h for what the
// grants mean).
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "frame/contract/quor_header_security.h"
#include "host/application/application.h"

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

// What can be granted: what the plug-ins list, then the host's own object types.
std::vector<SecurityComponent> grantable_components(Application& application);

}  // namespace quor
