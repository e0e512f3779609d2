// Versions of the settings at whose own date one of their tariffs has no value yet.
//
// Such a version would pay nothing by the tariff, and its editor, which shows values at the version's date, would
// forget it with the next save: whoever writes settings or tariffs' values refuses it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/store/database.h"

namespace quor {

struct TariffGap {
  std::int32_t settings;    // the version's ID
  std::string_view column;  // of the settings, that names the tariff
  std::int32_t tariff;      // the constant's ID
  Date date;                // from which the version holds
  std::string text;         // names the tariff, the date, and the tariff's first date if it has one
};

// Of all versions, as the open transaction has them. A version without a date is in force on none and has no gap.
std::vector<TariffGap> tariff_gaps(Database& database);

}  // namespace quor
