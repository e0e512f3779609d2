// What percentage a scale of year bands gives for a length of service (frame/service_years.h). A pure rule.
#pragma once

#include <cstdint>

#include "frame/service_years.h"
#include "platform/data/recordset.h"

namespace velmora {

// The percentage of the first band with YearFrom <= years < YearTo, in the order of the rows, among the scale rows of
// the settings record that stands first; 0 when there is none. A bound that is null matches nobody.
// The filter that selects the scale stays on `settings`, which may be null.
double percentage_for_years(std::int16_t years, quor::Recordset* settings);

}  // namespace velmora
