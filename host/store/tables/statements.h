// The statements that write one row of a described table. Of a versioned table they keep the row's version, who changed
// it and when.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/database.h"

namespace quor {

struct ColumnValue {
  std::string column;
  Variant value;
};

// What a new row of a versioned table has beside its described columns.
std::vector<ColumnValue> first_version(const std::string& user);
// The assignments of an UPDATE that changes rows of a versioned table: `user` and `time` are its binds of who and when.
std::string next_version(std::string_view table, const std::string& user, const std::string& time);

// Each throws StoreError, and std::logic_error for a table or a column that is not described. `user` is who changes a
// row of a versioned table.
void insert_row(Database& database, std::string_view table, const std::vector<ColumnValue>& values,
                const std::string& user = "");
// Writes the row of that ID; false when there is none. With `row_version`, of a versioned table, only while the row has
// that version; without one whatever others have written to it meanwhile.
bool update_row(Database& database, std::string_view table, std::int32_t id, const std::vector<ColumnValue>& values,
                const std::string& user = "", std::optional<std::int32_t> row_version = std::nullopt);
void delete_row(Database& database, std::string_view table, std::int32_t id);

}  // namespace quor
