// The rows of a table as they stand in the database, seen as cells of its file: cells[i] belongs to table.columns[i].
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "host/exchange/tables.h"
#include "host/store/database.h"

namespace quor {

// The database's columns behind the file's, in order; a day or month is two of them.
std::vector<FieldInfo> stored_fields(const ExchangedTable& table);

// Appends `cells` to the columns made of stored_fields, one row.
void append_row(const ExchangedTable& table, const std::vector<Variant>& cells, std::vector<ColumnData>& columns);

// Reads the whole table in the order of its files. `id` is the hidden one, 0 without; time codes are code_ids.
using RowVisitor = std::function<void(const std::vector<Variant>& cells, std::int32_t id)>;
void read_stored(Database& database, const ExchangedTable& table, const RowVisitor& visit);

}  // namespace quor
