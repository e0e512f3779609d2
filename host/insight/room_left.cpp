#include "host/insight/room_left.h"

#include <algorithm>
#include <cmath>

#include "frame/contract/over_limit.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

// The largest part in whole cents that is within the limit. What the product has too much is far below a tie, which is
// within the limit; what it has too little may be a cent.
double largest_part(double base, double limit) {
  double cents = std::floor(base * limit);
  while (!share_exceeds((cents + 1) / 100, base, limit)) ++cents;
  return cents;
}

// What is left of one limit; none without it.
std::optional<double> left_of(double base, double limit, double part) {
  if (limit <= 0) return std::nullopt;
  return largest_part(base, limit) - nearest_cents(part);
}

Room smaller(const Room& one, const Room& other) {
  if (!one || !other) return one ? one : other;
  return std::min(*one, *other);
}

}  // namespace

RoomLeft room_left(const Pay& pay, const ChargeLimits& limits) {
  if (is_no_base(pay.base) || pay.base < 0) return {};
  const bool supplements = limits.supplements > 0, surcharges = limits.surcharges > 0;
  const Room of_supplements = left_of(pay.base, limits.supplements, pay.supplements);
  const Room of_surcharges = left_of(pay.base, limits.surcharges, pay.surcharges);
  const Room of_both =
      left_of(pay.base, limits.both, (supplements ? pay.supplements : 0) + (surcharges ? pay.surcharges : 0));
  for (const Room& room : {of_supplements, of_surcharges, of_both}) {
    if (room && *room < 0) return {.supplement = 0, .surcharge = 0, .both = 0, .over = -*room / 100};
  }
  const auto money = [](const Room& cents) { return cents ? Room(*cents / 100) : Room(); };
  RoomLeft left;
  if (supplements) left.supplement = money(smaller(of_supplements, of_both));
  if (surcharges) left.surcharge = money(smaller(of_surcharges, of_both));
  if (supplements && surcharges) left.both = money(smaller(*of_supplements + *of_surcharges, of_both));
  return left;
}

std::string room_text(const Room& room, double over) {
  if (over > 0) return "viršyta " + fixed_text(over, 2);
  return room ? fixed_text(*room, 2) : "be ribos";
}

}  // namespace quor
