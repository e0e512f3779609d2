// A calendar date with an optional time of day, as the serial day number of the system: whole part = days since
// 1899-12-30, fraction = time of day, counted forward from midnight also before the zero date: -1.25 is 6 o'clock on
// 1899-12-29. Dates compare as their serials, exactly; within one day before the zero date a later hour is thus less.
//
// The zero date (serial 0) stands for "no date" only where a null was read as a date. Gregorian calendar throughout.
#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace quor {

class Date {
 public:
  static constexpr double kMinSerial = -657434.0;  // year 100
  static constexpr double kMaxSerial = 2958465.0;  // 9999-12-31

  constexpr Date() = default;  // the zero date, 1899-12-30
  // Throws Overflow outside kMinSerial..kMaxSerial (the last day's time of day is inside).
  static Date from_serial(double serial);
  // Throws TypeMismatch when there is no such day in the calendar.
  static Date from_ymd(int year, int month, int day);

  constexpr double serial() const { return serial_; }
  int year() const;
  int month() const;  // 1..12
  int day() const;    // 1..31
  Date without_time() const;

  friend constexpr auto operator<=>(Date a, Date b) { return a.serial_ <=> b.serial_; }
  friend constexpr bool operator==(Date a, Date b) { return a.serial_ == b.serial_; }

 private:
  explicit constexpr Date(double serial) : serial_(serial) {}
  double serial_ = 0.0;
};

// Month boundaries from `from` to `to`; the day plays no part; negative when `to` is in an earlier month.
int months_between(Date from, Date to);
// Whole days later, at the same time of day. Throws Overflow.
Date add_days(Date date, int days);

// "2008.01.31": the short date form; a time of day is not written.
std::string date_text(Date date);
// "2008.01.31", "2008-1-31", "2008/01/31", each with an optional " h:mm[:ss]"; blanks around and before the time are
// free. Throws TypeMismatch for anything else: another order, a year of two digits, two different separators
// ("2008.01-31"), a day that the calendar does not have, a time of 24:00, a number.
Date parse_date(std::string_view text);
std::optional<Date> try_parse_date(std::string_view text);

}  // namespace quor
