#include "host/company/public_holidays.h"

#include <gtest/gtest.h>

namespace quor {
namespace {

std::string holidays_of(const char* month) {
  std::string days;
  for (const PublicHoliday& each : proposed_norm(Month::parse(month), false).holidays) {
    days += (days.empty() ? "" : " ") + date_text(each.day).substr(8);
  }
  return days;
}

TEST(PublicHolidays, EasterIsTheSundayOfTheCalendars) {
  for (const char* day : {"1818.03.22", "1943.04.25", "1954.04.18", "1981.04.19", "2000.04.23", "2008.03.23",
                          "2011.04.24", "2024.03.31", "2038.04.25", "2049.04.18", "2076.04.19"}) {
    EXPECT_EQ(date_text(easter_sunday(parse_date(day).year())), day);
  }
}

TEST(PublicHolidays, AreThoseOfTheLawInThatYear) {
  const struct {
    const char *month, *days;
  } cases[] = {
      {"1989.12", ""},         {"1990.01", "01"},    {"2008.02", "16"},    {"2008.03", "11 23 24"},
      {"2024.03", "11 31"},    {"2024.04", "01"},    {"2011.05", "01 01"}, {"2008.05", "01 04"},
      {"2002.06", "02"},       {"2003.06", "01 24"}, {"1990.07", ""},      {"1991.07", "06"},
      {"2008.08", "15"},       {"2019.11", "01"},    {"2020.11", "01 02"}, {"2009.12", "25 26"},
      {"2010.12", "24 25 26"}, {"2008.09", ""},      {"2026.06", "07 24"},
  };
  for (const auto& c : cases) EXPECT_EQ(holidays_of(c.month), c.days) << c.month;
}

TEST(PublicHolidays, ANormIsItsWorkingDaysLessAnHourOnEachEve) {
  const struct {
    const char* month;
    int days, shortened;
    double hours, hours_shortened;
  } cases[] = {
      {"2008.01", 22, 0, 176, 176}, {"2008.02", 21, 1, 168, 167},  // Friday before Saturday the 16th
      {"2008.03", 19, 1, 152, 151},                                // Monday before the 11th; Easter's eve is a Saturday
      {"2008.04", 22, 1, 176, 175},                                // the eve of the 1st of May
      {"2008.06", 20, 1, 160, 159}, {"2008.10", 23, 1, 184, 183},  // Friday before All Saints, a Saturday
      {"2008.12", 21, 2, 168, 166},  // Christmas Eve was a working day; the eve of the next year
      {"2020.12", 21, 2, 168, 166},  // and is none now
      {"2024.11", 20, 0, 160, 160}, {"2024.12", 19, 2, 152, 150},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.month);
    const Month month = Month::parse(c.month);
    const ProposedNorm norm = proposed_norm(month, true);
    EXPECT_EQ(norm.working_days, c.days);
    EXPECT_EQ(norm.shortened_days, c.shortened);
    EXPECT_EQ(norm.hours, c.hours_shortened);
    EXPECT_EQ(proposed_norm(month, false).hours, c.hours);
  }
}

}  // namespace
}  // namespace quor
