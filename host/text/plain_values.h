// Values as programs write and read them, in files and JSON: numbers in full, days and months in ISO order.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/data/month.h"

namespace quor {

// A number in decimal digits, as many as read back to the same number, never with an exponent.
std::string plain_number(double value, bool decimal_comma = false);
std::string plain_day(Date date);             // "2008-01-31"
std::string plain_month(const Month& month);  // "2008-01"

// The whole text as a number, with a decimal point or comma; none for another text, for infinity and NaN.
std::optional<double> parse_plain_number(std::string_view text);
std::optional<std::int32_t> parse_plain_whole(std::string_view text);
// A date in any form of parse_date, but without a time of day. (A month: Month::try_parse.)
std::optional<Date> parse_plain_day(std::string_view text);

}  // namespace quor
