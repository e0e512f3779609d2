// Who may take a table out of a company and bring it in.
#pragma once

#include "host/company/rights_guard.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

// Whether somebody else than an administrator may do either: whether the table is known to be about an object type.
bool is_guarded(const StoredTable& table);

// Each throws Error naming the table. Taking out needs View of what the table holds, bringing in Create and Write.
// Users and their rights are the administrator's, and so is bringing in what months have calculated or closed; any
// table that nobody has been told about, too.
void require_export_right(RightsGuard& guard, const StoredTable& table);
void require_import_right(RightsGuard& guard, const StoredTable& table);

}  // namespace quor
