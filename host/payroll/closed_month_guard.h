// Whether a month is closed: whoever writes its documents asks first.
#pragma once

#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

bool is_closed(Database& database, const Month& month);
// Throws quor::Error naming the month when it is closed.
void require_open(Database& database, const Month& month);

}  // namespace quor
