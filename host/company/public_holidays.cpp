#include "host/company/public_holidays.h"

#include <algorithm>
#include <iterator>

#include "host/company/working_days.h"

namespace quor {

namespace {

constexpr double kHoursShortened = 1.0;
constexpr int kDaysOfWeek = 7;

enum class Reckoned {
  kDay,          // of the month
  kFirstSunday,  // of the month
  kEaster,       // `day` days after its Sunday
};

struct Rule {
  int since;  // the first year in which it is a holiday
  Reckoned reckoned;
  int month, day;
  const char* name;
};

constexpr int kRestored = 1990;  // the laws of the restored state
constexpr Rule kRules[] = {
    {kRestored, Reckoned::kDay, 1, 1, "Naujieji metai"},
    {kRestored, Reckoned::kDay, 2, 16, "Lietuvos valstybės atkūrimo diena"},
    {kRestored, Reckoned::kDay, 3, 11, "Lietuvos nepriklausomybės atkūrimo diena"},
    {kRestored, Reckoned::kEaster, 0, 0, "Velykos"},
    {kRestored, Reckoned::kEaster, 0, 1, "antroji Velykų diena"},
    {kRestored, Reckoned::kDay, 5, 1, "Tarptautinė darbo diena"},
    {kRestored, Reckoned::kFirstSunday, 5, 0, "Motinos diena"},
    {kRestored, Reckoned::kFirstSunday, 6, 0, "Tėvo diena"},
    {2003, Reckoned::kDay, 6, 24, "Rasos (Joninės)"},
    {1991, Reckoned::kDay, 7, 6, "Valstybės diena"},
    {kRestored, Reckoned::kDay, 8, 15, "Žolinė"},
    {kRestored, Reckoned::kDay, 11, 1, "Visų šventųjų diena"},
    {2020, Reckoned::kDay, 11, 2, "Vėlinės"},
    {2010, Reckoned::kDay, 12, 24, "Kūčios"},
    {kRestored, Reckoned::kDay, 12, 25, "Kalėdos"},
    {kRestored, Reckoned::kDay, 12, 26, "antroji Kalėdų diena"},
};

Date day_in(const Rule& rule, int year) {
  if (rule.reckoned == Reckoned::kEaster) return add_days(easter_sunday(year), rule.day);
  if (rule.reckoned == Reckoned::kDay) return Date::from_ymd(year, rule.month, rule.day);
  const Date first = Date::from_ymd(year, rule.month, 1);
  const int after_sunday = (static_cast<int>(first.serial()) + kDaysOfWeek - 1) % kDaysOfWeek;  // 1899-12-30: Saturday
  return add_days(first, (kDaysOfWeek - after_sunday) % kDaysOfWeek);
}

bool is_holiday(const std::vector<PublicHoliday>& holidays, Date day) {
  return std::any_of(holidays.begin(), holidays.end(), [&](const PublicHoliday& each) { return each.day == day; });
}

}  // namespace

// By the age of the moon: the Sunday after the first full moon of the church's calendar on or after March 21.
Date easter_sunday(int year) {
  const int golden = year % 19, century = year / 100;
  const int moon = (century - century / 4 - (8 * century + 13) / 25 + 19 * golden + 15) % 30;
  const int full = moon - moon / 28 * (1 - 29 / (moon + 1) * ((21 - golden) / 11));
  const int weekday = (year + year / 4 + full + 2 - century + century / 4) % kDaysOfWeek;
  return add_days(Date::from_ymd(year, 3, 28), full - weekday);
}

std::vector<PublicHoliday> public_holidays(int year) {
  std::vector<PublicHoliday> holidays;
  for (const Rule& rule : kRules) {
    if (year >= rule.since) holidays.push_back({day_in(rule, year), rule.name});
  }
  std::stable_sort(holidays.begin(), holidays.end(), [](const auto& a, const auto& b) { return a.day < b.day; });
  return holidays;
}

ProposedNorm proposed_norm(const Month& month, bool shorten) {
  const Date last = month.last_day(), eve_of_next = add_days(last, 1);
  std::vector<PublicHoliday> holidays = public_holidays(month.first_day().year());
  if (eve_of_next.year() != last.year()) {
    const auto next = public_holidays(eve_of_next.year());
    holidays.insert(holidays.end(), next.begin(), next.end());
  }
  ProposedNorm norm{};
  for (Date day = month.first_day(); day <= last; day = add_days(day, 1)) {
    if (working_days(day, day) == 0 || is_holiday(holidays, day)) continue;
    ++norm.working_days;
    if (is_holiday(holidays, add_days(day, 1))) ++norm.shortened_days;
  }
  std::copy_if(holidays.begin(), holidays.end(), std::back_inserter(norm.holidays),
               [&](const PublicHoliday& each) { return each.day >= month.first_day() && each.day <= last; });
  norm.hours = norm.working_days * kHoursOfWorkingDay - (shorten ? norm.shortened_days * kHoursShortened : 0);
  return norm;
}

}  // namespace quor
