// Who passes into another percentage for length of service, beside a count of every day.
#include "host/insight/steps_ahead.h"

#include <gtest/gtest.h>

#include "host/store/object_codes.h"
#include "platform/data/number_text.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class StepsAheadTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();  // 3 % from the 3rd year, 5 % from the 5th to the 10th
    company_.given_time_codes();
    category_ = company_.given_category("A lygis", {{"2005.01.01", 9.7}});  // 1260 a month
    department_ = company_.given_department("Skyrius");
  }
  // With a service of so many years and months on 2008.01.01.
  std::int32_t person(const char* name, int years, int months, const char* from = "2005.01.01",
                      const Variant& to = kNull, bool tied = true) {
    const auto employee = company_.given_employee(name, department_);
    company_.given_position({.employee = employee, .category = category_, .from = from, .to = to, .norm = name});
    if (years >= 0) company_.given_service(employee, day("2008.01.01"), years, months);
    if (tied) {
      company_.database().execute(
          "INSERT INTO extra_charges (id, guid, employee_id, salary_extra_oid, row_version) VALUES (:p0, :p1, :p2,"
          " 'O0402000', 1)",
          {employee, name, employee});
    }
    return employee;
  }
  StepsAhead look(const char* first, int months) {
    Transaction(company_.database()).commit();
    return steps_ahead(company_.application(), Month::parse(first), months);
  }
  static std::string told(const StepsAhead& ahead) {
    std::string text;
    for (const ServiceStep& step : ahead.steps) {
      text += step.name + " " + date_text(step.day) + " " + std::to_string(step.years) + " m. " +
              general_text(step.before) + "->" + general_text(step.after) + " " + fixed_text(step.difference, 2) + " " +
              step_remark(step) + "\n";
    }
    for (const PersonFault& fault : ahead.faults) text += fault.person + ": " + fault.reason + "\n";
    return text;
  }

  TestCompany company_{GetParam()};
  std::int32_t category_ = 0, department_ = 0;
};
ON_EVERY_DATABASE(StepsAheadTest);

TEST_P(StepsAheadTest, TellsEachStepAtItsBorders) {
  person("A laiku", 2, 11);        // three years on February 1st
  person("B vėliau", 2, 8);        // behind the months asked for
  person("C jau", 3, 0);           // the month before was the step
  person("D kita pakopa", 4, 10);  // five years on March 1st
  person("E už skalės", 9, 9);     // ten years: nothing any more
  person("F be priedo", 2, 10, "2005.01.01", kNull, false);
  person("G išėjo", 2, 11, "2005.01.01", day("2008.01.31"));
  person("H dar nedirba", 2, 11, "2008.02.02");
  person("I be stažo", -1, 0);
  const auto ill = person("J klaida", 0, 0);
  company_.database().execute("UPDATE experience SET experience_years = 40000 WHERE employee_id = :p0", {ill});
  company_.database().execute("UPDATE settings SET extra_charge_percentage = 4");
  EXPECT_EQ(told(look("2008-02", 3)),
            "A laiku 2008.02.01 3 m. 0->3 37,80 \n"
            "D kita pakopa 2008.03.01 5 m. 3->5 25,20 viršys ribą\n"
            "F be priedo 2008.03.01 3 m. 0->3 0,00 priedo už stažą nėra\n"
            "E už skalės 2008.04.01 10 m. 5->0 -63,00 \n"
            "J klaida: Netinkamas įrašytas tarnybos stažas: metai 40000, mėnesiai 0.\n");
  EXPECT_EQ(told(look("2008-03", 1)).find("A laiku"), std::string::npos);
  for (const int months : {0, 121}) {
    EXPECT_EQ(error_text([&] { look("2008-02", months); }),
              "Mėnesių skaičius " + std::to_string(months) + " (turi būti nuo 1 iki 120).");
  }
}

TEST_P(StepsAheadTest, TellsOtherSettingsFromALongerService) {
  person("Ada", 3, 6);
  company_.given_settings({.from = "2008.02.15",
                           .month_tariff = 1,
                           .hour_tariff = 2,
                           .bands = {{.year_from = 0, .year_to = 50, .percentage = 4.0}}});
  EXPECT_EQ(told(look("2008-01", 3)), "Ada 2008.02.15 3 m. 3->4 12,60 pasikeitė nustatymai\n");
}

// Thirty years of a scale that steps every third year, each day asked of the engine.
TEST(StepsAheadDays, AreThoseOfACountOfEveryDay) {
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  company.given_time_codes();
  company.given_constant("MMA_VT", {{"1990.01.01", 130.0}});
  std::vector<Band> bands;
  for (int year = 0; year < 40; year += 3) bands.push_back({year, year + 3, year * 1.0});
  company.given_settings({.from = "1990.01.01", .month_tariff = 1, .hour_tariff = 1, .bands = bands});
  const auto category = company.given_category("A", {{"1990.01.01", 9.7}});
  const auto ada = company.given_employee("Ada");
  company.given_position({.employee = ada, .category = category, .from = "1990.01.01"});
  company.given_service(ada, day("1999.05.31"), 2, 7);
  std::string counted;
  const auto engine = company.application().new_data_object(kSalaryExtensionType);
  const auto settings = company.rows("OfficeEmployeeSettings", "'2000.01.01'");
  const auto percentage = [&](Date at) {
    const Variant years = engine->Methods("GetYearsOfService", {ada, at}).Value;
    return engine->Methods("GetPercentageByExperience", {years, settings}).Value.to_double();
  };
  double before = percentage(day("1999.12.31"));
  for (Date at = day("2000.01.01"); at < day("2030.01.01"); at = add_days(at, 1)) {
    const double now = percentage(at);
    if (now != before) counted += date_text(at) + " " + general_text(now) + "\n";
    before = now;
  }
  std::string told;
  for (int decade = 2000; decade < 2030; decade += 10) {
    const Month first = Month::of(Date::from_ymd(decade, 1, 1));
    for (const ServiceStep& step : steps_ahead(company.application(), first, 120).steps) {
      told += date_text(step.day) + " " + general_text(step.after) + "\n";
    }
  }
  EXPECT_EQ(told, counted);
  EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 10);
}

}  // namespace
}  // namespace quor
