#include "engine/length_of_service.h"

#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::day;
using quor::FieldType;
using quor::kNull;

// How years grow, docs/rules/service.csv says.
TEST(LengthOfService, YearsBeyondTheirTypeAreAnOverflow) {
  const RecordedService most{.years = 32767, .months = 12, .reached_on = day("2008.01.01")};
  EXPECT_EQ(quor::outcome([&] { return service_years(most, day("2007.01.01")); }), "32767");
  EXPECT_EQ(quor::outcome([&] { return service_years(most, day("2008.01.01")); }), "Overflow");
}

std::shared_ptr<quor::Recordset> scale(const std::vector<std::vector<quor::Variant>>& rows) {
  return quor::record_set({{"GUID", FieldType::kText},
                           {"RowGUID", FieldType::kText},
                           {"YearFrom", FieldType::kInt16},
                           {"YearTo", FieldType::kInt16},
                           {"Percentage", FieldType::kDouble}},
                          rows);
}

TEST(LengthOfService, TheFirstMatchingBandOfTheFirstSettingsRecordGivesThePercentage) {
  const auto settings = scale({{"A'1", "r1", 0, 5, 2.5},
                               {"B", "r2", 30, 40, 99.0},  // of other settings
                               {"A'1", kNull, 50, 60, 88.0},
                               {"A'1", "r3", kNull, 60, 77.0},
                               {"A'1", "r4", 20, kNull, 66.0},
                               {"A'1", "r5", 5, 10, 5.0},
                               {"A'1", "r6", 8, 12, 6.0},
                               {"a'1", "r7", 12, 13, kNull}});
  const struct {
    std::int16_t years;
    double percentage;
  } cases[] = {{5, 5.0}, {12, 0}, {25, 0}, {35, 0}, {55, 0}};  // the bands' borders: docs/rules/scale.csv
  for (const auto& c : cases) {
    SCOPED_TRACE(c.years);
    settings->Filter("");
    settings->MoveLast();
    EXPECT_EQ(percentage_for_years(c.years, settings.get()), c.percentage);
    EXPECT_EQ(settings->Filter(), "GUID = 'A''1' AND RowGUID <> Null") << "the filter stays on the caller's set";
  }
  EXPECT_EQ(percentage_for_years(5, nullptr), 0.0);
  EXPECT_EQ(percentage_for_years(5, scale({}).get()), 0.0);
  EXPECT_EQ(percentage_for_years(5, scale({{"A", kNull, 0, 10, 7.0}}).get()), 0.0) << "settings without a scale";
}

class SupplementTest : public testing::Test {
 protected:
  std::string components(std::int32_t person, const char* date) {
    return quor::called(engine_, "GetPersonalExtraChargeComponents", {person, day(date)});
  }

  quor::TestCompany company_;
  UIO0402000 engine_{company_.application()};
};

TEST_F(SupplementTest, APersonsYearsGiveTheBandsPercentageAndAComment) {
  company_.given_tariffs();
  const std::int32_t first = company_.given_employee("Pirmoji");
  const std::int32_t second = company_.given_employee("Antras");
  const std::int32_t third = company_.given_employee("Trečias");
  company_.given_service(second, day("2005.01.31"), 3, 11);
  company_.given_service(third, kNull, 1, kNull);

  EXPECT_EQ(components(second, "2008.02.01"), "5;Tarnybos stažas datai 2008.02.01 (metai): 7");
  EXPECT_EQ(components(second, "2008.01.31"), "5;Tarnybos stažas datai 2008.01.31 (metai): 6");
  EXPECT_EQ(components(second, "2005.02.01"), "3;Tarnybos stažas datai 2005.02.01 (metai): 4");
  EXPECT_EQ(components(first, "2008.01.31"), "0;Tarnybos stažas datai 2008.01.31 (metai): 0") << "no service recorded";
  // 1297 months since the zero date are 108 years.
  EXPECT_EQ(components(third, "2008.01.31"), "0;Tarnybos stažas datai 2008.01.31 (metai): 109");
  EXPECT_EQ(components(second, "2004.12.31"), "0;Tarnybos stažas datai 2004.12.31 (metai): 3") << "no settings yet";
  company_.given_service(first, day("2005.01.31"), 40000, 3);
  company_.company().forget();
  EXPECT_EQ(components(first, "2008.01.31"),
            "[16: Kliada!\r\nGetPersonalExtraChargeComponents:\r\nNetinkamas įrašytas tarnybos stažas: metai 40000, "
            "mėnesiai 3.]");
  const auto years = [&](std::int32_t person, const char* date) {
    return quor::called(engine_, "GetYearsOfService", {person, day(date)});
  };
  EXPECT_EQ(years(17, "2008.01.31"), "0");
  EXPECT_EQ(years(first, "2008.01.31"), "[16: Netinkamas įrašytas tarnybos stažas: metai 40000, mėnesiai 3.]");
  EXPECT_TRUE(company_.application().shown_boxes().empty());
}

TEST_F(SupplementTest, WithoutServiceTheBandThatHoldsZeroCounts) {
  company_.given_settings({.from = "2005.01.01", .bands = {{0, 1, 1.5}, {1, 2, 9.0}}});
  EXPECT_EQ(components(17, "2008.01.31"), "1,5;Tarnybos stažas datai 2008.01.31 (metai): 0");
}

TEST_F(SupplementTest, AFailedRequestStopsWithCode16AndOnlyTheRequestsOwnBox) {
  company_.given_tariffs();
  for (const char* request : {"GetOfficeEmployeeExperience", "GetOfficeEmployeeSettings"}) {
    SCOPED_TRACE(request);
    company_.application().answers.clear();
    company_.application().refuse(request, "ryšys nutrūko");
    const std::size_t before = company_.application().boxes().size();
    EXPECT_EQ(components(1, "2008.01.31"), "[16: Kliada!\r\nGetPersonalExtraChargeComponents:\r\nryšys nutrūko]");
    const auto boxes = company_.application().boxes();
    ASSERT_EQ(boxes.size(), before + 1);
    EXPECT_EQ(boxes.back(), "exclamation, ok, Testas: ryšys nutrūko");
  }
  EXPECT_EQ(company_.application().requests,
            (std::vector<std::string>{"GetOfficeEmployeeExperience(None), flag 0",  // the first failure stops
                                      "GetOfficeEmployeeExperience(None), flag 0",
                                      "GetOfficeEmployeeSettings('2008.01.31'), flag 0"}));
}

TEST_F(SupplementTest, ActionsAreNamedExactly) {
  const auto named = [&](const char* action) { return quor::called(engine_, "GetActionComponents", {action}); };
  EXPECT_EQ(named("SalaryTariff"), "Valstybės tarnautojų atlyginimas");
  EXPECT_EQ(named("PersonalExtraCharge"), "Valstybės tarnautojų priedas už tarnybos stažą");
  EXPECT_EQ(named("salaryTariff"), "[0: No action.] Empty");
  EXPECT_EQ(named(""), "[0: No action.] Empty");
  EXPECT_TRUE(company_.application().shown_boxes().empty());
}

}  // namespace
}  // namespace velmora
