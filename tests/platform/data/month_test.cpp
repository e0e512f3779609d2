#include "platform/data/month.h"

#include <gtest/gtest.h>

#include "tests/support/outcome.h"

namespace quor {
namespace {

TEST(Month, HasAFirstAndALastDay) {
  const struct {
    const char *date, *first, *last;
  } cases[] = {
      {"2008.01.31", "2008.01.01", "2008.01.31"}, {"2008.02.10", "2008.02.01", "2008.02.29"},
      {"2007.02.10", "2007.02.01", "2007.02.28"}, {"2008.12.31", "2008.12.01", "2008.12.31"},
      {"1900.02.01", "1900.02.01", "1900.02.28"}, {"2100.02.28", "2100.02.01", "2100.02.28"},
      {"1899.12.30", "1899.12.01", "1899.12.31"}, {"2008.04.30 18:00", "2008.04.01", "2008.04.30"},
      {"9999.12.31", "9999.12.01", "9999.12.31"}, {"0100.01.01 6:00", "0100.01.01", "0100.01.31"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.date);
    const Month month = Month::of(parse_date(c.date));
    EXPECT_EQ(month.first_day(), parse_date(c.first));
    EXPECT_EQ(month.last_day(), parse_date(c.last));
  }
  EXPECT_EQ(Month::of(Date()).first_day().serial(), -29.0);
}

TEST(Month, IsReadAsADateWithoutItsDay) {
  const struct {
    const char *text, *days;
  } cases[] = {{"2008-02", "2008.02.01-2008.02.29"},
               {"2007.12", "2007.12.01-2007.12.31"},
               {"2008/1", "2008.01.01-2008.01.31"},
               {"2008-00", "TypeMismatch"},
               {"2008-13", "TypeMismatch"},
               {"2008", "TypeMismatch"},
               {"08-01", "TypeMismatch"},
               {"2008-01-31", "TypeMismatch"},
               {"2008-01 6", "TypeMismatch"},
               {"", "TypeMismatch"},
               {"sausis", "TypeMismatch"}};
  for (const auto& c : cases) {
    EXPECT_EQ(outcome([&] {
                const Month month = Month::parse(c.text);
                return date_text(month.first_day()) + "-" + date_text(month.last_day());
              }),
              c.days)
        << c.text;
  }
}

}  // namespace
}  // namespace quor
