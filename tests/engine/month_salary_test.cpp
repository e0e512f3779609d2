#include "engine/month_salary.h"

#include <gtest/gtest.h>

#include "tests/support/outcome.h"

namespace velmora {
namespace {

TEST(MonthSalary, TheLastDigitIsAppliedLiterallyAlsoBelowZero) {
  const double from_1260[] = {1260, 1260, 1260, 1265, 1265, 1265, 1265, 1265, 1270, 1270};
  // The digit of the text is subtracted, whatever the sign in front of it.
  const double from_minus_1260[] = {-1260, -1262, -1264, -1261, -1263, -1265, -1267, -1269, -1266, -1268};
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(to_multiple_of_five(1260 + i), from_1260[i]);
    EXPECT_EQ(to_multiple_of_five(-1260 - i), from_minus_1260[i]);
  }
  EXPECT_EQ(to_multiple_of_five(3), 5);
  EXPECT_EQ(to_multiple_of_five(1e15), 1e15) << "the last character of 1E+15 is a 5";
}

TEST(MonthSalary, TariffByFactorIsRoundedThenMultipliedByTheShare) {
  const struct {
    const char* name;
    double tariff, factor, share, expected;
  } cases[] = {
      {"last digit 1 falls to 0", 130.0, 9.7, 1.0, 1260.0},
      {"half the share, after rounding", 130.0, 9.7, 0.5, 630.0},
      {"a half goes up to 1263", 2525.0, 0.5, 1.0, 1265.0},
      {"just below a half stays 1262", 1262.49998, 1.0, 1.0, 1260.0},
      {"the sum is an exact half: to even", 1262.49999, 1.0, 1.0, 1260.0},
      {"less than 0,00001 below a half goes up", 1262.499995, 1.0, 1.0, 1265.0},
      {"1267,4 is 1267", 1267.4, 1.0, 1.0, 1265.0},
      {"1267,5 is 1268", 1267.5, 1.0, 1.0, 1270.0},
      {"half a cent goes up", 1265.0, 1.0, 0.001, 1.27},
      {"421,245 goes up", 1265.0, 1.0, 0.333, 421.25},
      {"two thirds", 1265.0, 1.0, 2.0 / 3.0, 843.33},
      {"negative amounts take the digit literally", -130.0, 9.7, 1.0, -1262.0},
      {"a negative half goes up too", -2525.0, 0.5, 1.0, -1264.0},
      {"a negative half cent goes up too", 1265.0, 1.0, -0.001, -1.26},
  };
  for (const auto& c : cases) EXPECT_EQ(month_salary(c.tariff, c.factor, c.share), c.expected) << c.name;
  EXPECT_EQ(quor::outcome([] { return month_salary(1e200, 1e200, 1.0); }), "Overflow");
}

}  // namespace
}  // namespace velmora
