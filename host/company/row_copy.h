// Rows of a kept record set as a set of the caller's own: its filter and its edits then disturb nobody.
#pragma once

#include <memory>
#include <string_view>

#include "platform/data/recordset.h"

namespace quor {

// A new set of the rows of `kept` that pass the filter.
std::shared_ptr<Recordset> rows_that_pass(const Recordset& kept, std::string_view filter);
// A new set of the current row of `source`, or without rows.
std::shared_ptr<Recordset> current_row_only(const Recordset& source, bool with_row);

}  // namespace quor
