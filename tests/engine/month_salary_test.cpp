#include "engine/month_salary.h"

#include <gtest/gtest.h>

#include "tests/support/outcome.h"

namespace velmora {
namespace {

// What it rounds to, docs/rules/roundings.csv says.
TEST(MonthSalary, AnAmountBeyondAllNumbersIsAnOverflow) {
  EXPECT_EQ(quor::outcome([] { return month_salary(1e200, 1e200, 1.0); }), "Overflow");
}

}  // namespace
}  // namespace velmora
