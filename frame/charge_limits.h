// The limits on supplements and surcharges, as shares of the base salary. The check of a month's rows and the preview
// read them and decide by them here, so that both say the same of every pair of whole cents.
#pragma once

#include <cmath>

#include "platform/data/recordset.h"

namespace velmora {

// In per cent of the base salary; 0 or below for no limit.
struct ChargeLimits {
  double supplement = 0, surcharge = 0, total = 0;
};

// Those of the settings' current row; a null is no limit.
ChargeLimits charge_limits(const quor::Recordset& settings);

// Less than half a cent: sums of cents are binary, and 0.10 + 0.20 - 0.30 leaves 5e-17.
inline bool is_no_base(double base) { return std::abs(base) < 0.005; }

// Whether `part` is more than `limit` per cent of `base`, which is a base. A tie is within the limit, also where the
// sums or the division come out a hair above it; one cent over is always over.
inline bool share_exceeds(double part, double base, double limit) {
  constexpr double kTie = 0.000001;  // of 100 times an amount: far below the cent, far above the noise of sums
  return part / base * 100 > limit && std::abs(part * 100 - limit * base) > kTie;
}

// A percentage of whole cents in one division: a tie is exactly the limit, so it is compared as it is.
inline bool percentage_exceeds(double percentage, double limit) { return limit > 0 && percentage > limit; }

}  // namespace velmora
