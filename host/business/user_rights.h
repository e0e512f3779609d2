// Users of a company and what is granted to each, as an administrator sees and changes them (see rights.h for what the
// grants mean).
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "host/business/company.h"

namespace quor {

using GrantedRights = std::array<bool, 5>;  // in the order of UserRight

struct CompanyUser {
  std::string name;
  bool administrator = false;
  std::map<std::string, GrantedRights> rights = {};  // by component; no entry: the enclosing component decides
};

// In the order of their names. Throws StoreError.
std::vector<CompanyUser> company_users(Company& company);

// Makes these the users of the company, all at once. Throws Error and writes nothing when a name is empty or there
// twice, or when there are users but no administrator: nobody could change them any more. Throws StoreError.
void store_company_users(Company& company, const std::vector<CompanyUser>& users);

// Whether the user may change users and rights: in a company without users anybody may.
bool may_administer(Company& company, const std::string& user);

}  // namespace quor
