#include "platform/data/month.h"

#include <chrono>

#include "platform/data/error.h"

namespace quor {

Month Month::of(Date date) { return Month(Date::from_ymd(date.year(), date.month(), 1)); }

Month Month::parse(std::string_view text) {
  if (const auto month = try_parse(text)) return *month;
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(text) + "“ nėra mėnuo: rašykite, pvz., 2008-01.");
}

std::optional<Month> Month::try_parse(std::string_view text) {
  const std::size_t separator = text.find_first_of("-./");
  if (separator == std::string_view::npos || text.find_first_not_of("0123456789", separator + 1) != text.npos)
    return std::nullopt;
  const auto first = try_parse_date(std::string(text) + text[separator] + "1");
  return first ? std::optional(Month(*first)) : std::nullopt;
}

Date Month::last_day() const {
  const auto year = std::chrono::year{first_day_.year()};
  const auto last = (year / first_day_.month() / std::chrono::last).day();
  return Date::from_ymd(first_day_.year(), first_day_.month(), static_cast<int>(static_cast<unsigned>(last)));
}

std::string Month::text() const { return date_text(first_day_).substr(0, 7); }

}  // namespace quor
