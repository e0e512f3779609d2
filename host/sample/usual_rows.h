// What the sample company and one that starts empty have alike: codes, and the scale of the supplement for service.
#pragma once

#include <cstdint>

#include "host/sample/sample_data.h"
#include "host/sample/sample_random.h"
#include "host/store/database.h"
#include "platform/data/date.h"

namespace quor {

// All inside the open transaction.

// The types of salary constants, without values; answers the first one's ID.
std::int32_t add_constant_types(Database& database);
void add_indications(Database& database);
// Answers the first one's ID.
std::int32_t add_salary_codes(Database& database);

// Versions of the settings, each with the usual scale: one per cent a year of service, from the third year to the
// thirtieth.
void add_settings(Database& database, SampleRandom& random, std::int32_t first_constant,
                  std::span<const sample_data::Settings> versions);

inline Date date_of(sample_data::Day day) { return Date::from_ymd(day.year, day.month, day.day); }

}  // namespace quor
