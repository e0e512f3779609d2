// The positions of one employee as their card lists them, and the end of employment.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"

namespace quor {

struct PersonPosition {
  std::string key;
  std::string category;          // "" without one
  std::optional<double> factor;  // of the category at the day asked for; none before its first
  std::string tariff;            // what its own base tariff is called; "" by that of the settings
  std::optional<double> tariff_value;
  double share = 0;
  std::optional<Date> from;  // none for what is no day of the calendar
  std::optional<Date> to;
};

// By date. Throws StoreError, and Error when the user may not view the salary extension.
std::vector<PersonPosition> positions_of(Application& application, std::int32_t employee, Date at);

// What runs on behind the day: it has begun by then, and ends later or never.
struct RunningOn {
  std::int32_t positions = 0;
  std::int32_t charges = 0;
};
RunningOn running_on(Application& application, std::int32_t employee, Date day);

// Ends on the day what runs on behind it, in one transaction: every position, and the charges, too, when they are asked
// for. Asks about closed months that this reaches into. Throws StoreError, and Error when the user may not write what
// is ended; refuses when no position runs on, and when one begins only after the day. Nothing is written then.
RunningOn end_employment(Application& application, std::int32_t employee, Date day, bool with_charges);

}  // namespace quor
