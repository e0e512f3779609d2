// The rows that belong to a stored record: read with it, edited in memory, stored in its transaction.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "host/objects/record_types.h"
#include "host/store/database.h"

namespace quor {

// Fields: ID, the owner's GUID, then the rows' own. Without rows for a new record.
std::shared_ptr<Recordset> new_child_rows(const ChildRows& type);
std::shared_ptr<Recordset> read_child_rows(Database& database, const ChildRows& type, std::int32_t owner,
                                           const std::string& owner_guid);

// Stores the batch of `rows` inside the open transaction: added, modified and deleted rows. The batch itself stays as
// it is; accept it when the transaction is committed.
void store_child_rows(Database& database, const ChildRows& type, std::int32_t owner, Recordset& rows);

}  // namespace quor
