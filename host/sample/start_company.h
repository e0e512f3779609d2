// A company to start with: no people, and everything else that the first one needs, so that he can be taken on at once.
// All of it holds from 2005 on and is there to be corrected.
#pragma once

#include <string>

#include "host/store/database.h"

namespace quor {

// Fills `database`, an empty company, inside the open transaction: the office's name, the department "Administracija",
// salary constants with a value each, time and salary codes, settings with limits and the usual scale, categories with
// a factor each; GUIDs are random.
void fill_start_company(Database& database, const std::string& name);

}  // namespace quor
