// The last month that the company has documents of.
#pragma once

#include <optional>

#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

// None before the first document. Throws StoreError.
std::optional<Month> latest_month(Database& database);

}  // namespace quor
