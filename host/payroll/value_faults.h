// What is said of a stored value that cannot be right: whose it is stands around it.
#pragma once

#include <string>

#include "host/store/tables/value_ranges.h"

namespace quor {

// "tarnybos stažo metai 40000 (turi būti nuo 0 iki 80)"; "" when the range holds the value.
std::string value_fault(const std::string& what, double value, const NumberRange& range);
// The same of a date as its serial.
std::string date_fault(const std::string& what, double serial);

}  // namespace quor
