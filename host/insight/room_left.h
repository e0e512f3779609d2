// How much more may be given within the limits of the settings: a pure rule, to the cent.
//
// It is the rule of the check of salary rows, oddities included: a kind without a limit of its own is left out of the
// limit of both, and nothing is checked without base pay. With the room given the check passes, with one cent more it
// fails.
#pragma once

#include <optional>

#include "host/payroll/document_limits.h"
#include "host/payroll/month_overview.h"

namespace quor {

// Money in whole cents; none where no limit stands against it.
using Room = std::optional<double>;

struct RoomLeft {
  Room supplement;  // the largest further supplement alone
  Room surcharge;   // the largest further surcharge alone
  Room both;        // the largest sum of both together
  double over = 0;  // by how much the first exceeded limit is exceeded already; no room is left then
};

RoomLeft room_left(const Pay& pay, const ChargeLimits& limits);

// "120,50", "be ribos", or "viršyta 12,30".
std::string room_text(const Room& room, double over);

}  // namespace quor
