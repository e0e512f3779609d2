// The limits on supplements and surcharges, as shares of the base salary. A pure rule.
#pragma once

namespace velmora {

// Whether `part` is more than `limit` per cent of `base`, which is not 0. Exactly at the limit is within it, also where
// the division comes out a hair above: 550 of 1000 is 55 per cent.
inline bool exceeds_limit(double part, double base, double limit) {
  return part / base * 100 > limit && part * 100 != limit * base;
}

}  // namespace velmora
