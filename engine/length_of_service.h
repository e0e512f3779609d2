// Length of service: how it grows, and what percentage a scale of year bands gives for it. Pure rules.
#pragma once

#include <cstdint>

#include "platform/data/date.h"
#include "platform/data/recordset.h"

namespace velmora {

// A length of service as it stood at one date. Months may be twelve or more.
struct RecordedService {
  std::int16_t years = 0;
  std::int16_t months = 0;
  quor::Date reached_on;
};

// Whole years of service at `date`: the recorded years, and the whole years in the recorded months and the month
// boundaries since; the days of the dates play no part. Negative for a date far before. Throws Overflow past 16 bits.
std::int16_t service_years(const RecordedService& service, quor::Date date);

// The percentage of the first band with YearFrom <= years < YearTo, in the order of the rows, among the scale rows of
// the settings record that stands first; 0 when there is none. A bound that is null matches nobody.
// The filter that selects the scale stays on `settings`, which may be null.
double percentage_for_years(std::int16_t years, quor::Recordset* settings);

}  // namespace velmora
