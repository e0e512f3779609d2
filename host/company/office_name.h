// The name of the office whose company is open.
#pragma once

#include <string>

#include "host/company/rights_guard.h"

namespace quor {

std::string office_name(Database& database);

// Stores the name. Throws Error for whoever is no administrator; StoreError for a name that no text column holds, and
// when it is no longer `read`.
void rename_office(RightsGuard& guard, const std::string& read, const std::string& name);

}  // namespace quor
