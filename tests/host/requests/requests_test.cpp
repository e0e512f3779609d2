#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace quor {
namespace {

// The values of one field of a request's answer, "9,1 9,7".
std::string field_of(TestCompany& company, const char* name, const std::string& parameter, const char* field) {
  return walked(*company.rows(name, parameter), field);
}

std::string on(const char* date) { return std::string("'") + date + "'"; }

class Requests : public testing::TestWithParam<Backend> {};
ON_EVERY_DATABASE(Requests);

TEST_P(Requests, TheRowWithTheLatestStartOnOrBeforeTheDateIsInForce) {
  TestCompany company(GetParam());
  company.given_constant("A", {{"2007.01.01", 2.0}, {"2005.01.01", 1.0}, {"2008.02.01", 3.0}});
  company.given_constant("B", {{"2008.01.31", 9.0}});
  company.given_category("A lygis", {{"2005.01.01", 9.1}, {"2007.07.01", 9.5}, {"2007.07.01", 9.7}});
  company.given_settings({.from = "2005.01.01", .month_tariff = 1});
  company.given_settings({.from = "2008.01.31", .month_tariff = 2});
  company.given_settings({.from = "2008.01.31", .month_tariff = 1});
  const struct {
    const char *date, *constants, *factor, *settings;
  } cases[] = {{"2004.12.31", "", "", ""},       {"2005.01.01", "1", "9,1", "1"},
               {"2006.12.31", "1", "9,1", "1"},  {"2007.01.01", "2", "9,1", "1"},
               {"2007.06.30", "2", "9,1", "1"},  {"2007.07.01", "2", "9,7", "1"},  // of a tie the last one
               {"2008.01.30", "2", "9,7", "1"},  {"2008.01.31", "2 9", "9,7", "3"},
               {"2008.02.01", "3 9", "9,7", "3"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.date);
    EXPECT_EQ(field_of(company, "SalaryConstants", on(c.date), "ConstantValue"), c.constants);
    EXPECT_EQ(field_of(company, "OfficeEmployeeCategory", "1," + on(c.date), "Factor"), c.factor);
    EXPECT_EQ(field_of(company, "OfficeEmployeeSettings", on(c.date), "ID"), c.settings);
  }
  EXPECT_EQ(field_of(company, "OfficeEmployeeCategory", "2,'2008.01.31'", "Factor"), "");
  EXPECT_EQ(company.get("SalaryConstants", on("2008.01.31")),
            "1;A;Konstanta A;2007.01.01;2 | 2;B;Konstanta B;2008.01.31;9");
}

TEST_P(Requests, SettingsComeWithTheirScaleALineABand) {
  TestCompany company(GetParam());
  const std::string january = on("2008.01.31");
  company.given_settings({.from = "2004.01.01", .bands = {{0, 1, 99.0}}});
  company.given_settings({.from = "2005.01.01", .bands = {{3, 5, 3.5}, {kNull, 10, 5.0}}});
  company.given_settings({.from = "2008.02.01"});
  EXPECT_EQ(field_of(company, "OfficeEmployeeSettings", january, "YearFrom"), "3 Null");
  EXPECT_EQ(field_of(company, "OfficeEmployeeSettings", january, "YearTo"), "5 10");
  EXPECT_EQ(field_of(company, "OfficeEmployeeSettings", january, "Percentage"), "3,5 5");
  EXPECT_EQ(field_of(company, "OfficeEmployeeSettings", on("2008.02.01"), "RowGUID"), "Null") << "an empty scale";
}

TEST_P(Requests, APositionIsFoundByItsKeyAndDateOrByItsIdAlone) {
  TestCompany company(GetParam());
  const auto person = company.given_employee("Pirmoji");
  const auto position = [&](const char* contract, const char* from, const Variant& to) {
    return company.given_position({.employee = person, .from = from, .to = to, .contract = contract, .norm = "N"});
  };
  position("K'", "2005.01.01", kNull);
  position("K'", "2007.01.01", parse_date("2008.01.31"));
  position("T", "2007.01.01", kNull);
  position("T", "2007.01.01", kNull);
  const struct {
    const char *parameter, *ids;
  } cases[] = {{"'K''N','2004.12.31'", ""},  {"'K''N','2005.01.01'", "1"}, {"'K''N','2006.12.31'", "1"},
               {"'K''N','2007.01.01'", "2"}, {"'K''N','2008.01.31'", "2"}, {"'K''N','2008.02.01'", ""},  // ended
               {"'TN','2008.01.31'", "4"},   {"'T','2008.01.31'", ""},     {"'N','2008.01.31'", ""}};
  for (const auto& c : cases) EXPECT_EQ(field_of(company, "SalaryExtraRow", c.parameter, "ID"), c.ids) << c.parameter;
  EXPECT_EQ(field_of(company, "SalaryExtraRowByID", "2,'1990.01.01'", "OIDR"), "O04020002");
  EXPECT_EQ(field_of(company, "SalaryExtraRowByID", "5,'2008.01.31'", "OIDR"), "");
}

TEST_P(Requests, PeopleStandInLithuanianOrderAndOpenChargesFromTheirBounds) {
  TestCompany company(GetParam());
  const auto department = company.given_department("Žemės skyrius");
  company.given_department("Cechas", department);
  const auto last = company.given_employee("Šilas", department);
  const auto first = company.given_employee("Sula", department);
  company.given_employee("Čepas", department);
  company.given_service(last, parse_date("2005.01.31"), 3, kNull);
  company.given_charge(last, kNull, kNull, 12.5);
  company.given_charge(first, parse_date("2008.01.01"), parse_date("2008.01.31"), kNull);

  EXPECT_EQ(company.get("Departments", "None"), "2;1;Cechas | 1;Null;Žemės skyrius");
  EXPECT_EQ(company.get("Employees", "None"), "3;1;Čepas;Null | 2;1;Sula;Null | 1;1;Šilas;Null");
  EXPECT_EQ(company.get("OfficeEmployeeExperience", "None"), "1;2005.01.31;3;Null");
  EXPECT_EQ(company.get("OfficeEmployeeExtraCharges", "None"),
            "1;1;1990.01.01;2999.12.31;Null;12,5;Null;Null | 2;2;2008.01.01;2008.01.31;Null;Null;Null;Null");
  EXPECT_EQ(field_of(company, "PersonalExtraCharges", "'O04001001'", "DateTo"), "Null");
  EXPECT_EQ(field_of(company, "PersonalExtraCharges", "'O04001002'", "DateTo"), "2008.01.31");
}

TEST_P(Requests, WhatCannotBeAnsweredSaysWhy) {
  TestCompany company(GetParam());
  const std::string refused = "[1: Užklausos parametras „";
  EXPECT_EQ(company.get("Nothing", "None"), "[1: Nėra užklausos „GetNothing“.]");
  EXPECT_EQ(company.get("salaryCodes", "None"), "[1: Nėra užklausos „GetsalaryCodes“.]");
  EXPECT_EQ(company.get("PersonalExtraCharges", "'O0400100'"), "[1: „O0400100“ nėra darbuotojo raktas.]");
  EXPECT_EQ(company.get("PersonalExtraCharges", "'O040010099'"),
            "[1: Nėra darbuotojo, kurio raktas yra „O040010099“.]");
  EXPECT_EQ(company.get("PersonalExtraCharges", "'O00016041'"), "[1: „O00016041“ nėra darbuotojo raktas.]");
  EXPECT_EQ(company.get("PersonalExtraCharges", "'O04001001x'"), "[1: „O04001001x“ nėra darbuotojo raktas.]");
  const std::vector<std::pair<const char*, std::vector<const char*>>> bad_parameters = {
      {"Departments", {"", "'x'"}},
      {"Employees", {"", "None,1"}},
      {"Indications", {""}},
      {"SalaryCodes", {"1"}},
      {"OfficeEmployeeExperience", {""}},
      {"OfficeEmployeeExtraCharges", {""}},
      {"SalaryConstants", {"None", "2008.01.31", "'2008.01.31',1"}},
      {"OfficeEmployeeSettings", {"None", "'2008.13.01'", "'2008.01.31' "}},
      {"OfficeEmployeeCategory", {"'2008.01.31'", "1", "'1','2008.01.31'", "1,'2008.01.31',1"}},
      {"SalaryExtraRow", {"'2008.01.31'", "K,'2008.01.31'", "'K','2008.01.31',1"}},
      {"SalaryExtraRowByID", {"1", "'1','2008.01.31'", "1,'2008.01.31',1"}},
      {"PersonalExtraCharges", {"O04001001", "'O04001001',1"}}};
  for (const auto& [name, texts] : bad_parameters) {
    for (const char* text : texts) {
      const std::string answer = company.get(name, text);
      EXPECT_EQ(answer.substr(0, refused.size() + std::string(text).size()), refused + text) << name;
    }
  }
  company.fail_statements();
  EXPECT_EQ(company.get("Departments", "None"), "[1: ryšys nutrūko]");
  EXPECT_EQ(company.get("SalaryConstants", on("2008.01.31")), "[1: ryšys nutrūko]");
  company.heal();
  EXPECT_EQ(company.get("SalaryConstants", on("2008.01.31")), "") << "a failure is not kept";
}

struct AskedSet {
  const char *name, *parameter;
};
const AskedSet kAskedSets[] = {{"Departments", "None"},
                               {"Employees", "None"},
                               {"Indications", "None"},
                               {"SalaryCodes", "None"},
                               {"OfficeEmployeeExperience", "None"},
                               {"OfficeEmployeeExtraCharges", "None"},
                               {"PersonalExtraCharges", "'O04001001'"},
                               {"SalaryConstants", "'2008.01.31'"},
                               {"OfficeEmployeeCategory", "1,'2008.01.31'"},
                               {"OfficeEmployeeSettings", "'2008.01.31'"},
                               {"SalaryExtraRow", "'K1N1','2008.01.31'"},
                               {"SalaryExtraRowByID", "1,'2008.01.31'"}};

void fill_every_set(TestCompany& company) {
  company.given_tariffs();
  company.given_category("A lygis", {{"2005.01.01", 9.7}});
  const auto person = company.given_employee("Pirmoji");
  company.given_position({.employee = person});
  company.given_service(person, kNull, 1, 2);
  company.given_charge(person, kNull, kNull, 1.0);
  company.database().execute(
      "INSERT INTO indications (id, indication_code, code_id, code, code_name) VALUES (1, 'WorkTime', 5, 'FD', 'Darbo "
      "diena')");
  company.database().execute("INSERT INTO salary_codes (id, code, name) VALUES (1, '10', 'Pareiginė alga')");
}

TEST_P(Requests, WhatACallerDoesWithAnAnswerDoesNotShowInTheNext) {
  TestCompany company(GetParam());
  fill_every_set(company);
  for (const AskedSet& set : kAskedSets) {
    SCOPED_TRACE(set.name);
    const std::string fresh = company.get(set.name, set.parameter);
    ASSERT_NE(fresh, "");

    const auto filtered = company.rows(set.name, set.parameter);
    filtered->Filter(filtered->field_info({0}).name + " = Null");
    EXPECT_EQ(filtered->RecordCount(), 0);
    const auto next = company.rows(set.name, set.parameter);
    EXPECT_EQ(next->Filter(), "");
    EXPECT_FALSE(next->Bof() || next->Eof()) << "a fresh set stands on its first row";
    EXPECT_EQ(rows_text(*next), fresh);
    EXPECT_FALSE(next->has_changes());

    const auto edited = company.rows(set.name, set.parameter);
    edited->set_field(FieldHandle{0}, kNull);
    EXPECT_EQ(company.get(set.name, set.parameter), fresh) << "an edit that is pending";
    edited->Update();
    EXPECT_EQ(company.get(set.name, set.parameter), fresh) << "an edit that is done";
    company.rows(set.name, set.parameter)->Delete();
    EXPECT_EQ(company.get(set.name, set.parameter), fresh) << "a deleted row";
  }
}

TEST_P(Requests, SharedSetsAreReadOnceUntilAWriteIsSeen) {
  TestCompany company(GetParam());
  fill_every_set(company);
  const auto statements_of_all = [&] {
    const auto before = company.database().statements();
    for (const AskedSet& set : kAskedSets) company.get(set.name, set.parameter);
    return company.database().statements() - before;
  };
  // Two requests share the positions; departments, employees and one person's charges are read every time.
  EXPECT_EQ(statements_of_all(), 13U) << "the first asks whether the company has users";
  EXPECT_EQ(statements_of_all(), 3U);
  company.company().refresh();
  EXPECT_EQ(statements_of_all(), 3U) << "nobody wrote";
  {
    Transaction transaction(company.database());
    company.database().execute("UPDATE constant_values SET value = 140 WHERE constant_type_id = 1");
    transaction.commit();
  }
  EXPECT_EQ(field_of(company, "SalaryConstants", on("2008.01.31"), "ConstantValue"), "130 0,8");
  company.company().refresh();
  EXPECT_EQ(field_of(company, "SalaryConstants", on("2008.01.31"), "ConstantValue"), "140 0,8");
}

}  // namespace
}  // namespace quor
