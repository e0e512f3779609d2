// Who may take a table out of a company and bring it in.
#pragma once

#include "host/company/rights_guard.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

// Each throws Error naming the table. Taking out needs View of what the table holds, bringing in Create and Write.
// Users and their rights are the administrator's, and so is bringing in what months have calculated or closed.
void require_export_right(RightsGuard& guard, const StoredTable& table);
void require_import_right(RightsGuard& guard, const StoredTable& table);

}  // namespace quor
