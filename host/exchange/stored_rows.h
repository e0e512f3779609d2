// The rows of a table as they stand in the database, seen as cells of its file: cells[i] belongs to table.columns[i].
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/store/database.h"
#include "host/store/tables/stored_tables.h"

namespace quor {

// The cells of a row as the columns of stored_fields hold them.
std::vector<Variant> stored_cells(const StoredTable& table, const std::vector<Variant>& cells);

// Reads the whole table in the order of its files. `id` is the hidden one, 0 without; time codes are code_ids.
using RowVisitor = std::function<void(const std::vector<Variant>& cells, std::int32_t id)>;
void read_stored(Database& database, const StoredTable& table, const RowVisitor& visit);

}  // namespace quor
