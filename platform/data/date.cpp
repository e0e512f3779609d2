#include "platform/data/date.h"

#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>

#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {
namespace {

namespace chrono = std::chrono;

constexpr chrono::sys_days kZeroDay = chrono::year{1899} / 12 / 30;
constexpr int kSecondsOfDay = 24 * 60 * 60;

// The day of a serial. Toward zero, not floor: -1.25 is 6 o'clock of day -1. The sum turns -0 into 0.
double day_number(double serial) { return std::trunc(serial) + 0.0; }

// Time of day in days, 0 <= t < 1.
double time_of_day(double serial) { return std::fabs(serial - std::trunc(serial)); }

double join(double day, double time) { return day < 0.0 ? day - time : day + time; }

chrono::year_month_day calendar_day(double serial) {
  return kZeroDay + chrono::days{static_cast<int>(day_number(serial))};
}

double serial_of(chrono::sys_days day) { return static_cast<double>((day - kZeroDay).count()); }

// Years before 100 lie outside the range of serials.
std::optional<double> serial_of_ymd(int year, int month, int day) {
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  const chrono::year_month_day date{chrono::year{year}, chrono::month{static_cast<unsigned>(month)},
                                    chrono::day{static_cast<unsigned>(day)}};
  if (!date.ok()) return std::nullopt;
  return serial_of(chrono::sys_days{date});
}

void write_digits(char* begin, int width, int value) {
  for (int i = width - 1; i >= 0; --i, value /= 10) begin[i] = static_cast<char>('0' + value % 10);
}

// ---- text to date

// Takes `least` to `most` digits off the front of `rest`; a digit more than that is not looked at.
std::optional<int> take_number(std::string_view& rest, std::size_t least, std::size_t most) {
  std::size_t count = 0;
  int value = 0;
  while (count < most && count < rest.size() && rest[count] >= '0' && rest[count] <= '9') {
    value = value * 10 + (rest[count++] - '0');
  }
  if (count < least) return std::nullopt;
  rest.remove_prefix(count);
  return value;
}

bool take(std::string_view& rest, char c) {
  if (rest.empty() || rest.front() != c) return false;
  rest.remove_prefix(1);
  return true;
}

std::optional<double> take_day(std::string_view& rest) {
  const auto year = take_number(rest, 4, 4);
  if (!year || rest.empty()) return std::nullopt;
  const char separator = rest.front();
  if (separator != '.' && separator != '-' && separator != '/') return std::nullopt;
  rest.remove_prefix(1);
  const auto month = take_number(rest, 1, 2);
  if (!month || !take(rest, separator)) return std::nullopt;
  const auto day = take_number(rest, 1, 2);
  if (!day) return std::nullopt;
  return serial_of_ymd(*year, *month, *day);
}

// h:mm[:ss], 0:00:00 to 23:59:59.
std::optional<double> take_time(std::string_view& rest) {
  const auto hour = take_number(rest, 1, 2);
  if (!hour || *hour > 23 || !take(rest, ':')) return std::nullopt;
  const auto minute = take_number(rest, 2, 2);
  if (!minute || *minute > 59) return std::nullopt;
  int seconds = (*hour * 60 + *minute) * 60;
  if (take(rest, ':')) {
    const auto second = take_number(rest, 2, 2);
    if (!second || *second > 59) return std::nullopt;
    seconds += *second;
  }
  return static_cast<double>(seconds) / kSecondsOfDay;
}

}  // namespace

Date Date::from_serial(double serial) {
  const double day = std::trunc(serial);
  // Written so that a NaN fails.
  if (!(day >= kMinSerial && day <= kMaxSerial)) {
    throw Error(ErrorKind::kOverflow, "Data, kurios numeris " + general_text(serial) + ", netelpa į leistinas ribas.");
  }
  return Date(serial + 0.0);
}

Date Date::from_ymd(int year, int month, int day) {
  if (const auto serial = serial_of_ymd(year, month, day)) return Date(*serial);
  const auto text = std::to_string(year) + "." + std::to_string(month) + "." + std::to_string(day);
  throw Error(ErrorKind::kTypeMismatch, "Kalendoriuje nėra datos „" + text + "“.");
}

int Date::year() const { return static_cast<int>(calendar_day(serial_).year()); }
int Date::month() const { return static_cast<int>(static_cast<unsigned>(calendar_day(serial_).month())); }
int Date::day() const { return static_cast<int>(static_cast<unsigned>(calendar_day(serial_).day())); }
Date Date::without_time() const { return Date(day_number(serial_)); }

int months_between(Date from, Date to) { return (to.year() * 12 + to.month()) - (from.year() * 12 + from.month()); }

Date add_days(Date date, int days) {
  const double day = day_number(date.serial()) + days;
  return Date::from_serial(join(day, time_of_day(date.serial())));
}

std::string date_text(Date date) {
  const auto day = calendar_day(date.serial());
  std::string text = "yyyy.MM.dd";
  write_digits(text.data(), 4, static_cast<int>(day.year()));
  write_digits(text.data() + 5, 2, static_cast<int>(static_cast<unsigned>(day.month())));
  write_digits(text.data() + 8, 2, static_cast<int>(static_cast<unsigned>(day.day())));
  return text;
}

std::optional<Date> try_parse_date(std::string_view text) {
  while (take(text, ' ')) {
  }
  while (text.ends_with(' ')) text.remove_suffix(1);
  const auto day = take_day(text);
  if (!day) return std::nullopt;
  if (text.empty()) return Date::from_serial(*day);
  if (!take(text, ' ')) return std::nullopt;
  while (take(text, ' ')) {
  }
  const auto time = take_time(text);
  if (!time || !text.empty()) return std::nullopt;
  return Date::from_serial(join(*day, *time));
}

Date parse_date(std::string_view text) {
  if (const auto date = try_parse_date(text)) return *date;
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(text) + "“ nėra data.");
}

}  // namespace quor
