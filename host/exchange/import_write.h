// Writes what a check has found to write, in bulk.
#pragma once

#include <string>

#include "host/exchange/import_check.h"
#include "host/store/database.h"

namespace quor {

// Inside the open transaction. Throws StoreError when the database refuses.
void write_plan(Database& database, const TablePlan& plan, const std::string& user);

}  // namespace quor
