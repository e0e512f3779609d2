// Closed months: what is paid out is not calculated again.
#pragma once

#include <string>

#include "host/payroll/month.h"
#include "host/store/database.h"

namespace quor {

bool is_closed(Database& database, const Month& month);
// Throws quor::Error naming the month when it is closed.
void require_open(Database& database, const Month& month);

// Close a month and open it again; each throws quor::Error when it is so already.
void close_month(Database& database, const Month& month, const std::string& user);
void reopen_month(Database& database, const Month& month);

}  // namespace quor
