#include "platform/data/date.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

#include "tests/support/outcome.h"

namespace quor {
namespace {

struct DayCase {
  int year, month, day;
  double serial;
  const char* text;
};
const DayCase kDays[] = {
    {1899, 12, 30, 0.0, "1899.12.30"},       {1899, 12, 29, -1.0, "1899.12.29"},
    {1899, 12, 31, 1.0, "1899.12.31"},       {1900, 1, 1, 2.0, "1900.01.01"},
    {1900, 2, 28, 60.0, "1900.02.28"},       {1900, 3, 1, 61.0, "1900.03.01"},
    {1990, 1, 1, 32874.0, "1990.01.01"},     {2000, 2, 29, 36585.0, "2000.02.29"},
    {2005, 1, 31, 38383.0, "2005.01.31"},    {2008, 1, 31, 39478.0, "2008.01.31"},
    {2008, 2, 29, 39507.0, "2008.02.29"},    {2008, 3, 1, 39508.0, "2008.03.01"},
    {2999, 12, 31, 401768.0, "2999.12.31"},  {100, 1, 1, -657434.0, "0100.01.01"},
    {9999, 12, 31, 2958465.0, "9999.12.31"},
};

TEST(Date, SerialsAndTexts) {
  for (const DayCase& c : kDays) {
    SCOPED_TRACE(c.text);
    const Date date = Date::from_ymd(c.year, c.month, c.day);
    EXPECT_EQ(date.serial(), c.serial);
    EXPECT_EQ(date_text(date), c.text);
    EXPECT_EQ(parse_date(c.text), date);
  }
}

TEST(Date, TheTimeOfDayCountsForwardFromMidnightOnBothSidesOfTheZeroDate) {
  const struct {
    double serial;
    const char* text;
    double without_time;
    double next_day;
  } cases[] = {
      {39478.75, "2008.01.31", 39478.0, 39479.75},
      {0.25, "1899.12.30", 0.0, 1.25},
      {-0.25, "1899.12.30", 0.0, 1.25},
      {-1.25, "1899.12.29", -1.0, 0.25},
      {-2.75, "1899.12.28", -2.0, -1.75},
      {-657434.5, "0100.01.01", -657434.0, -657433.5},
      {-1.0, "1899.12.29", -1.0, 0.0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.serial);
    const Date date = Date::from_serial(c.serial);
    EXPECT_EQ(date_text(date), c.text);
    EXPECT_EQ(date.without_time().serial(), c.without_time);
    EXPECT_FALSE(std::signbit(date.without_time().serial()) && c.without_time == 0.0);
    EXPECT_EQ(add_days(date, 1).serial(), c.next_day);
  }
  EXPECT_LT(Date::from_serial(39478.0), Date::from_serial(39478.75));
  EXPECT_NE(Date::from_serial(39478.0), Date::from_serial(39478.75));
}

TEST(Date, TheRangeEndsWithTheLastDaysTimes) {
  EXPECT_EQ(outcome([] { return Date::from_serial(2958465.75); }), "2958465.75");
  EXPECT_EQ(outcome([] { return Date::from_serial(2958466.0); }), "Overflow");
  EXPECT_EQ(outcome([] { return Date::from_serial(-657434.75); }), "-657434.75");
  EXPECT_EQ(outcome([] { return Date::from_serial(-657435.0); }), "Overflow");
  EXPECT_EQ(outcome([] { return Date::from_serial(std::nan("")); }), "Overflow");
  EXPECT_EQ(outcome([] { return Date::from_serial(std::numeric_limits<double>::infinity()); }), "Overflow");
  EXPECT_EQ(outcome([] { return add_days(Date::from_ymd(9999, 12, 31), 1); }), "Overflow");
  EXPECT_EQ(outcome([] { return add_days(Date(), -2147483647); }), "Overflow");
}

TEST(Date, OnlyDaysOfTheCalendarAreDays) {
  const int days[][4] = {
      {2000, 2, 29, 36585}, {2007, 2, 28, 39141}, {2008, 2, 29, 39507}, {2100, 2, 28, 73109}, {2100, 3, 1, 73110}};
  for (const auto& d : days) EXPECT_EQ(Date::from_ymd(d[0], d[1], d[2]).serial(), d[3]) << d[0];
  const int none[][3] = {{1900, 2, 29},   {2007, 2, 29}, {2008, 2, 30}, {2100, 2, 29}, {2008, 4, 31},
                         {2008, 0, 1},    {2008, 13, 1}, {2008, 1, 0},  {2008, 1, 32}, {2008, 257, 1},
                         {2008, 1, -255}, {99, 12, 31},  {10000, 1, 1}, {67544, 1, 1}};
  for (const auto& d : none) {
    EXPECT_EQ(outcome([&] { return Date::from_ymd(d[0], d[1], d[2]); }), "TypeMismatch") << d[0] << d[1] << d[2];
  }
}

TEST(Date, TextAsDate) {
  const std::pair<const char*, std::vector<const char*>> days[] = {
      {"39508", {"2008.3.01", "2008.03.1"}},
      {"39478", {"2008-01-31", "2008/1/31", "  2008.01.31  ", "2008.01.31   00:00"}},
      {"39478.25", {"2008.01.31 6:00"}},
      {"39478.75", {"2008-1-31 18:00:00"}},
      {"39508.40625", {"2008-3-1 9:45"}},
      {"39508.0003125", {"2008.03.01 00:00:27"}},
      {"-1.25", {"1899.12.29 06:00"}},
      {"39478.999305555553", {"2008.01.31 23:59"}},
      {"TypeMismatch",
       {"2008.02.30",
        "2008.13.01",
        "2008.00.01",
        "",
        " ",
        "2008.01-31",
        "2008/01.31",
        "2008,01,31",
        "08.01.31",
        "31.01.2008",
        "02008.01.31",
        "0099.12.31",
        "2008.001.31",
        "2008.01.031",
        "2008.01.",
        "2008.01",
        "2008..31",
        "2008. 01.31",
        "2008.01.31.",
        "2008.01.31x",
        "39478",
        "2008.01.31 24:00",
        "2008.01.31 6:60",
        "2008.01.31 6:00:60",
        "2008.01.31 6:0",
        "2008.01.31 6:00:0",
        "2008.01.31 6",
        "2008.01.31 006:00",
        "2008.01.316:00",
        "2008.01.31 6:00:00.5"}}};
  for (const auto& [serial, texts] : days) {
    for (const char* text : texts) {
      EXPECT_EQ(outcome([&] { return parse_date(text); }), serial) << text;
      EXPECT_EQ(try_parse_date(text).has_value(), std::string(serial) != "TypeMismatch") << text;
    }
  }
}

TEST(Date, MonthBoundariesBetweenDates) {
  const struct {
    const char *from, *to;
    int months;
  } cases[] = {
      {"2005.01.31", "2008.02.01", 37}, {"2001.03.20", "2008.05.01", 86},   {"2008.01.31", "2008.02.01", 1},
      {"2008.01.01", "2008.01.31", 0},  {"2008.05.01", "2008.03.01", -2},   {"2007.12.31", "2008.01.01", 1},
      {"2008.01.01", "2007.12.31", -1}, {"1899.12.30", "2008.01.31", 1297},
  };
  for (const auto& c : cases)
    EXPECT_EQ(months_between(parse_date(c.from), parse_date(c.to)), c.months)
        << testing::Message() << c.from << " to " << c.to;
}

TEST(Date, EverySeventeenthDayGoesThroughTheCalendarAndBack) {
  int wrong = 0;
  for (double serial = Date::kMinSerial; serial <= Date::kMaxSerial; serial += 17.0) {
    const Date date = Date::from_serial(serial);
    if (Date::from_ymd(date.year(), date.month(), date.day()) != date) ++wrong;
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace quor
