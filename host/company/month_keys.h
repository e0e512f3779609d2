// The keys of objects that stand for a month: the type code, then the serial day number of the month's first day.
#pragma once

#include <string>

#include "platform/data/month.h"

namespace quor {

std::string key_of_month(const std::string& object_type, const Month& month);

// Throws Error (NotFound) for a key that is none of that type.
Month month_of_key(const std::string& key, const std::string& object_type);

}  // namespace quor
