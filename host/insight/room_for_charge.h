// What a person's supplements leave free for one charge, while it is being typed: the month is calculated once without
// storing, and measured again at each change.
#pragma once

#include <cstdint>
#include <string>

#include "host/application/application.h"
#include "host/insight/room_left.h"
#include "platform/data/month.h"

namespace quor {

struct RoomForCharge {
  Month month;
  Pay pay = {};                   // without the charge
  double service_percentage = 0;  // of the scale, for a charge that is tied to the length of service
  ChargeLimits limits = {};
  std::string fault = {};  // why the month cannot be calculated; "" without one
};

// `charge` is the ID of the charge that is left out, 0 for a new one. Throws as calculate_people does, and quor::Error
// when the user may not view the salary extension.
RoomForCharge room_for_charge(Application& application, const Month& month, std::int32_t employee, std::int32_t charge);

// "2008.01: pagrindas 1260,00, priedams dar galima 126,00 (10,00 %)", and by how much a charge of `typed` is over it.
std::string room_for_charge_text(const RoomForCharge& room, double typed);

}  // namespace quor
