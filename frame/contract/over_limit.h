// When supplements and surcharges are over a limit of the settings: the host forms the percentages, the plug-in checks
// a month's rows and colours its preview, and all of them decide here, so that they say the same of every pair of whole
// cents.
//
// Implemented by  plain functions.
// Called by       the host and the plug-in.
// States          none.
// Units           sums of money, limits and percentages in per cent of the base salary; a limit of 0 or below is none.
#pragma once

#include <cmath>
#include <cstdint>

namespace quor {

// The Code of "CheckSalaryRows" for sums over a limit.
inline constexpr std::int32_t kOverLimit = 4;

inline double nearest_cents(double sum) { return std::nearbyint(sum * 100); }

// Less than half a cent: sums of cents are binary, and 0.10 + 0.20 - 0.30 leaves 5e-17.
inline bool is_no_base(double base) { return std::abs(base) < 0.005; }

// What share of the base `part` is, 0 for a base of no cent. One division of whole cents: a share that is exactly a
// limit comes out as that limit, whatever the amounts, while sums of cents and two roundings may miss it by a hair.
inline double percentage_of(double part, double base) {
  return nearest_cents(base) == 0 ? 0 : nearest_cents(part) * 100 / nearest_cents(base);
}

// Of what percentage_of says: a tie is exactly the limit, so it is compared as it is.
inline bool percentage_exceeds(double percentage, double limit) { return limit > 0 && percentage > limit; }

// Whether `part`, a sum as it came out, is more than `limit` per cent of `base`, which is a base. A tie is within the
// limit, also where the sums or the division come out a hair above it; one cent over is always over.
inline bool share_exceeds(double part, double base, double limit) {
  constexpr double kTie = 0.000001;  // of 100 times an amount: far below the cent, far above the noise of sums
  return part / base * 100 > limit && std::abs(part * 100 - limit * base) > kTie;
}

}  // namespace quor
