// The settings that a month is calculated by, as they are stored.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

struct MonthSettings {
  std::set<std::int32_t> surcharge_codes;  // the time codes that earn a surcharge
  std::string fault;  // why nobody can be calculated by them, naming the settings and the value; "" when they are sound
};

// The settings in force at the end of the month. Throws StoreError.
MonthSettings read_month_settings(Database& database, const Month& month);

}  // namespace quor
