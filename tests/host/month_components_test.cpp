#include "host/payroll/month_components.h"

#include <gtest/gtest.h>

#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(Month, IsAYearAndAMonth) {
  struct Case {
    const char* text;
    const char* days;
  };
  const Case cases[] = {{"2008-02", "2008.02.01-2008.02.29"},
                        {"2007.12", "2007.12.01-2007.12.31"},
                        {"2008-1", "2008.01.01-2008.01.31"},
                        {"2008-00", "TypeMismatch"},
                        {"2008-13", "TypeMismatch"},
                        {"2008", "TypeMismatch"},
                        {"08-01", "TypeMismatch"},
                        {"2008-01-31", "TypeMismatch"},
                        {"01-2008", "TypeMismatch"},
                        {"", "TypeMismatch"},
                        {"sausis", "TypeMismatch"}};
  for (const Case& c : cases) {
    EXPECT_EQ(outcome([&] {
                const Month month = Month::parse(c.text);
                return date_text(month.first_day()) + "-" + date_text(month.last_day());
              }),
              c.days)
        << c.text;
  }
}

class MonthComponentsTest : public testing::Test {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    category_ = company_.given_category("A lygis", {{"2005.01.01", 9.7}});
  }
  MonthComponents components(const char* month, std::optional<std::int32_t> department = {}) {
    return month_components(company_.application(), Month::parse(month), department);
  }
  std::string people(const char* month, std::optional<std::int32_t> department = {}) {
    return walked(*components(month, department).rows, "Person");
  }

  TestCompany company_;
  std::int32_t category_ = 0;
};

TEST_F(MonthComponentsTest, APersonsPayIsSalaryByShareAndSupplementBySalary) {
  const auto small = company_.given_category("C lygis", {{"2005.01.01", 9.423}});
  const auto department = company_.given_department("Skyrius");
  const auto zilinas = company_.given_employee("Žilinas", department);
  const auto cepas = company_.given_employee("Čepas", department);
  const auto budrys = company_.given_employee("Budrys", department);
  company_.given_service(cepas, parse_date("2005.01.31"), 3, 11);
  company_.given_service(zilinas, parse_date("2008.01.01"), 6, 0);
  company_.given_position({.employee = zilinas, .category = small, .share = 0.1});
  company_.given_position({.employee = cepas, .category = category_, .share = 0.5});
  company_.given_position({.employee = cepas, .category = category_, .constant_type = 2, .from = "2006.01.01"});
  company_.given_position({.employee = budrys});

  const MonthComponents found = components("2008-02");
  EXPECT_EQ(rows_text(*found.rows),
            "Budrys;;0;130;1;0;0;0;0 | "
            "Čepas;A lygis;9,7;130;0,5;630;7;5;31,5 | "
            "Čepas;A lygis;9,7;0,8;1;10;7;5;0,5 | "
            "Žilinas;C lygis;9,423;130;0,1;122,5;6;5;6,13");  // half a cent goes up
  EXPECT_TRUE(found.faults.empty());
}

TEST_F(MonthComponentsTest, OnlyPositionsOfTheMonthCount) {
  const auto position = [&](const char* name, const char* from, const Variant& to) {
    company_.given_position({.employee = company_.given_employee(name), .from = from, .to = to});
  };
  position("EndsBefore", "2005.01.01", parse_date("2008.01.31"));
  position("EndsOnTheFirst", "2005.01.01", parse_date("2008.02.01"));
  position("BeginsOnTheLast", "2008.02.29", kNull);
  position("BeginsAfter", "2008.03.01", kNull);
  EXPECT_EQ(people("2008-02"), "BeginsOnTheLast EndsOnTheFirst");
}

TEST_F(MonthComponentsTest, ADepartmentCountsWithAllBelowIt) {
  const auto top = company_.given_department("Skyrius");
  const auto below = company_.given_department("Poskyris", top);
  const auto deepest = company_.given_department("Grupė", below);
  const auto other = company_.given_department("Kitas");
  for (const auto& [name, department] :
       {std::pair{"Žukas", top}, {"Šilas", below}, {"Ąžuolas", deepest}, {"Sala", other}, {"Bala", other}}) {
    company_.given_position({.employee = company_.given_employee(name, department)});
  }
  EXPECT_EQ(people("2008-01"), "Ąžuolas Bala Sala Šilas Žukas");
  EXPECT_EQ(people("2008-01", top), "Ąžuolas Šilas Žukas");
  EXPECT_EQ(people("2008-01", below), "Ąžuolas Šilas");
  EXPECT_EQ(people("2008-01", other), "Bala Sala");
  EXPECT_EQ(error_text([&] { components("2008-01", 99); }), "Nėra padalinio, kurio ID yra 99.");
}

TEST_F(MonthComponentsTest, OnePersonsFaultIsRecordedAndTheOthersGoOn) {
  const auto department = company_.given_department("Skyrius");
  for (const char* name : {"Adomas", "Benas", "Celina"}) {
    company_.given_position({.employee = company_.given_employee(name, department), .category = category_});
  }
  company_.given_service(2, parse_date("2005.01.01"), 32767, 12);
  const MonthComponents found = components("2008-01");
  EXPECT_EQ(walked(*found.rows, "Person"), "Adomas Celina");
  ASSERT_EQ(found.faults.size(), 1U);
  EXPECT_EQ(found.faults[0].person, "Benas");
  EXPECT_NE(found.faults[0].reason, "");

  company_.application().refuse("GetOfficeEmployeeSettings", "nėra ryšio");
  const MonthComponents none = components("2008-01");
  EXPECT_EQ(none.rows->RecordCount(), 0);
  ASSERT_EQ(none.faults.size(), 3U);
  EXPECT_EQ(none.faults[2].person + ": " + none.faults[2].reason,
            "Celina: Kliada!\r\nGetPersonalExtraChargeComponents:\r\nnėra ryšio");
}

TEST_F(MonthComponentsTest, TheNumberOfStatementsDoesNotGrowWithThePeople) {
  const auto department = company_.given_department("Skyrius");
  const auto add_person = [&] {
    const auto person = company_.given_employee("Žmogus", department);
    company_.given_service(person, parse_date("2005.01.31"), 3, 11);
    company_.given_position({.employee = person, .category = category_});
  };
  const auto statements = [&] {
    TestApplication application(company_.company(), {});  // the shared sets are read again
    application.load_plugin(VELMORA_PLUGIN);
    Transaction(company_.database()).commit();
    company_.company().refresh();
    const auto before = company_.database().statements();
    month_components(application, Month::parse("2008-01"), department);
    return company_.database().statements() - before;
  };
  add_person();
  const auto for_one = statements();
  for (int i = 0; i < 40; ++i) add_person();
  EXPECT_EQ(statements(), for_one);
  EXPECT_EQ(people("2008-01").size(), 41 * std::string("Žmogus ").size() - 1);
}

}  // namespace
}  // namespace quor
