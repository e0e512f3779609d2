// How a recorded length of service grows. A pure rule.
#pragma once

#include <cstdint>

#include "platform/data/date.h"

namespace velmora {

// A length of service as it stood at one date, as it is recorded. Months may be twelve or more.
struct RecordedService {
  std::int32_t years = 0;
  std::int32_t months = 0;
  quor::Date reached_on;
};

// Whole years of service at `date`: the recorded years, and the whole years in the recorded months and the month
// boundaries since; the days of the dates play no part. Negative for a date far before. Throws Overflow past 16 bits,
// with a text that says what is recorded.
std::int16_t service_years(const RecordedService& service, quor::Date date);

}  // namespace velmora
