// Restatements beside the engine that they restate: to the bit, on amounts around every rounding.
#include "host/insight/restatement.h"

#include <gtest/gtest.h>
#include <random>

#include "host/store/object_codes.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(Restatement, EndsInTheMonthSalaryOfTheEngine) {
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  const auto engine = company.application().new_data_object(kSalaryExtensionType);
  std::mt19937 random(20080131);
  std::uniform_int_distribution<int> tariff(1, 200'000), factor(1, 3'000), part(1, 400);
  for (int i = 0; i < 20'000; ++i) {
    const double a = tariff(random) / 100.0, b = factor(random) / 100.0, c = part(random) / 168.0;
    const MonthSalarySteps steps = restate_month_salary(a, b, c);
    ASSERT_EQ(steps.sum, engine->Methods("GetMonthSalaryValue", {a, b, c}).Value.to_double()) << a << " " << b;
    ASSERT_EQ(static_cast<int>(steps.five_fold) % 5, 0) << steps.whole;
  }
}

TEST(Restatement, CountsServiceAsTheEngineDoes) {
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  const auto person = company.given_employee("Ada");
  company.given_service(person, day("2005.01.31"), 3, 11);
  const auto engine = company.application().new_data_object(kSalaryExtensionType);
  for (Date at = day("2002.01.15"); at < day("2012.01.01"); at = Date::from_serial(at.serial() + 17)) {
    const ServiceSteps steps = restate_service(3, 11, day("2005.01.31"), at);
    ASSERT_EQ(steps.years, engine->Methods("GetYearsOfService", {person, at}).Value.to_int16()) << date_text(at);
    ASSERT_TRUE(0 <= steps.rest && steps.rest < 12) << date_text(at);
  }
  EXPECT_EQ(restate_service(3, 11, day("2005.01.31"), day("2008.02.01")).months, 48);
}

}  // namespace
}  // namespace quor
