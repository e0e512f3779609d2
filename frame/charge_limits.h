// The limits on supplements and surcharges, as the check of a month's rows and the preview read them; what is over one,
// frame/contract/over_limit.h decides.
#pragma once

#include "platform/data/recordset.h"

namespace velmora {

// In per cent of the base salary; 0 or below for no limit.
struct ChargeLimits {
  double supplement = 0, surcharge = 0, total = 0;
};

// Those of the settings' current row; a null is no limit.
ChargeLimits charge_limits(const quor::Recordset& settings);

}  // namespace velmora
