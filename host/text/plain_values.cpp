#include "host/text/plain_values.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace quor {

namespace {

std::string with_dashes(std::string text) {
  std::replace(text.begin(), text.end(), '.', '-');
  return text;
}

template <typename Number>
std::optional<Number> whole_text(std::string_view text) {
  Number value = 0;
  const char* const last = text.data() + text.size();
  const auto [end, error] = std::from_chars(text.data(), last, value);
  return error == std::errc() && end == last ? std::optional(value) : std::nullopt;
}

}  // namespace

std::string plain_number(double value, bool decimal_comma) {
  char text[400];  // the longest: the smallest number above zero, with 323 zeros behind its point
  std::string number(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr);
  if (decimal_comma) std::replace(number.begin(), number.end(), '.', ',');
  return number;
}

std::string plain_day(Date date) { return with_dashes(date_text(date)); }

std::string plain_month(const Month& month) { return with_dashes(month.text()); }

std::optional<double> parse_plain_number(std::string_view text) {
  std::string with_point(text);
  std::replace(with_point.begin(), with_point.end(), ',', '.');
  const auto value = whole_text<double>(with_point);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::int32_t> parse_plain_whole(std::string_view text) { return whole_text<std::int32_t>(text); }

std::optional<Date> parse_plain_day(std::string_view text) {
  const auto date = try_parse_date(text);
  return date && *date == date->without_time() ? date : std::nullopt;
}

}  // namespace quor
