// The sort keys that a company keeps beside its names: all by one rule, the newest that has opened it.
#pragma once

#include "host/store/database.h"

namespace quor {

// A new company's keys are by this program's rule. Inside the open transaction.
void note_sort_keys(Database& database);

// Makes the keys anew when they are by an older rule. A company that may not be written, or that another program is
// writing, keeps its old order until the next opening: order is no reason not to open.
void renew_sort_keys(Database& database);

}  // namespace quor
