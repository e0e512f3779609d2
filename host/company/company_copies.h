// Copies of a company for whoever may make and bring them back: they hold everything, so an administrator. In a company
// without users everybody may.
#pragma once

#include <string>

#include "host/company/rights_guard.h"

namespace quor {

// See back_up of backup.h. Throws Error when the user may not.
void back_up_company(RightsGuard& guard, const std::string& place);

// Throws Error when the user may not bring this company back to a copy.
void require_restore_right(RightsGuard& guard);

// See restore_company of backup.h; where a company stands that opens, it says whether the user may, else Error. No
// connection to the company may be open.
std::string restore_company_as(const std::string& user, const std::string& company, const std::string& copy);

}  // namespace quor
