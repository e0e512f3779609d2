// What a user has put on the desk top: keys of objects, kept in the company by the user's name, in the order in which
// they were put there. Each function throws StoreError.
#pragma once

#include <string>
#include <vector>

#include "host/company/company.h"

namespace quor {

// At the end; nothing when it is there already, or when the key carries no object.
void put_on_desk_top(Company& company, const std::string& user, const std::string& object);
void take_off_desk_top(Company& company, const std::string& user, const std::string& object);
std::vector<std::string> desk_top_of(Company& company, const std::string& user);

}  // namespace quor
