#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace quor {
namespace {

class ObjectListsTest : public testing::TestWithParam<Backend> {
 protected:
  ObjectListsTest() {
    const auto top = company_.given_department("Žemės skyrius");
    const auto below = company_.given_department("Čekių poskyris", top);
    const auto first = company_.given_employee("Žilinas", top);
    const auto second = company_.given_employee("Čepaitė", below);
    company_.given_category("Žemiausia", {{"2005.01.01", 9.7}, {"2008.01.31", 10.25}, {"2008.02.01", 11.0}});
    company_.given_category("čia", {{"2008.02.01", 5.0}});
    company_.given_category("Du", {});
    company_.given_constant("B", {{"2005.01.01", 130.0}});
    company_.given_constant("A", {});
    company_.given_settings({.from = "2008.02.01", .extra_limit = 55.0, .total_limit = 70.5});
    company_.given_settings({.from = "2005.01.01"});
    company_.given_position({.employee = first, .category = 1, .from = "2006.01.01", .to = day("2006.12.31")});
    company_.given_position({.employee = first, .from = "2005.01.01", .contract = "K2"});
    company_.given_position({.employee = second, .category = 3});
    company_.given_time_codes();
    company_.database().execute(
        "INSERT INTO indications (id, indication_code, code_id, code, code_name)"
        " VALUES (9, 'DayType', 9, 'D', 'Darbo diena')");
    company_.database().execute("INSERT INTO salary_codes (id, code, name) VALUES (1, '101', 'Alga'), (2, '9', 'Be')");
    company_.database().execute(
        "INSERT INTO month_norms (month, hours) VALUES (39448, 176), (39479, 167.5), (39814, 8)");
  }
  std::shared_ptr<Recordset> list(const std::string& parameter, const std::string& filter = "",
                                  const std::string& order = "") {
    return company_.application().NewMainBO()->GetQuorObjectList(parameter, filter, order);
  }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(ObjectListsTest);

TEST_P(ObjectListsTest, EachTypeIsListedInOrderWithItsColumns) {
  const struct {
    std::string parameter;
    const char *columns, *rows;
  } cases[] = {
      {"O0001604", "OIDR;Pavadinimas;Aukštesnis padalinys;Level",
       "O00016041;Žemės skyrius;;0 | O00016042;Čekių poskyris;Žemės skyrius;1"},
      {"'O0001604','O00016041'", "OIDR;Pavadinimas;Aukštesnis padalinys;Level",
       "O00016042;Čekių poskyris;Žemės skyrius;0"},
      {"O0400610", "OIDR;Metai;Valandų per metus;Įrašyta mėnesių", "O04006102009;2009;8;1 | O04006102008;2008;343,5;2"},
      {"O0400620", "OIDR;Pavadinimas;Kodas", "O04006201;FD;FD | O04006203;L;L | O04006204;PV;PV | O04006202;VD;VD"},
      {"O0400630", "OIDR;Pavadinimas;Kodas", "O04006302;Be;9 | O04006301;Alga;101"},
      {"O0400100", "OIDR;Pavardė, vardas;Padalinys",
       "O04001002;Čepaitė;Čekių poskyris | O04001001;Žilinas;Žemės skyrius"},
      {"'O0400100','O00016041'", "OIDR;Pavardė, vardas;Padalinys", "O04001001;Žilinas;Žemės skyrius"},
      {"O0400600", "OIDR;Pavadinimas;Kodas;Reikšmė", "O04006002;Konstanta A;A; | O04006001;Konstanta B;B;130"},
      {"O0402200", "OIDR;Pavadinimas;Koeficientas", "O04022002;čia; | O04022003;Du; | O04022001;Žemiausia;10,25"},
      {"'O0402200'", "OIDR;Pavadinimas;Koeficientas", "O04022002;čia; | O04022003;Du; | O04022001;Žemiausia;10,25"},
      {"O0402300", "OIDR;Galioja nuo;Priedų riba;Priemokų riba;Bendra riba",
       "O04023001;2008.02.01;55;;70,5 | O04023002;2005.01.01;;;"},
      {"'O0402000',''", "OIDR;Darbuotojas;Kategorija;Nuo;Iki",
       "O04020003;Čepaitė;Du;2005.01.01; | O04020002;Žilinas;;2005.01.01; |"
       " O04020001;Žilinas;Žemiausia;2006.01.01;2006.12.31"},
      {"'O0402000','O04001002'", "OIDR;Darbuotojas;Kategorija;Nuo;Iki", "O04020003;Čepaitė;Du;2005.01.01;"},
      {"'O0402000','O04001009'", "OIDR;Darbuotojas;Kategorija;Nuo;Iki", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.parameter);
    const auto rows = list(c.parameter);
    ASSERT_TRUE(rows);
    std::string columns;
    for (std::size_t i = 0; i < rows->field_count(); ++i) columns += (i == 0 ? "" : ";") + rows->field_info({i}).name;
    EXPECT_EQ(columns, c.columns);
    EXPECT_EQ(rows_text(*rows), c.rows);
  }
  EXPECT_EQ(list("O0402200", "Pavadinimas = 'Du'")->RecordCount(), 1);
  EXPECT_EQ(list("O0402200")->RecordCount(), 3) << "the filter of one disturbs nobody";
  EXPECT_TRUE(company_.application().boxes().empty());
}

TEST_P(ObjectListsTest, WhatCannotBeListedIsShownAndAnswersNothing) {
  const std::pair<std::shared_ptr<Recordset>, const char*> cases[] = {
      {list("O0402100"), "Tipo „O0402100“ objektų sąrašo nėra."},
      {list(""), "Tipo „“ objektų sąrašo nėra."},
      {list("O04022001"), "Tipo „O04022001“ objektų sąrašo nėra."},
      {list("'O0402000','O00016041'"), "Darbuotojų pareigybės nepriklauso objektui „O00016041“."},
      {list("'O0402200','O04001001'"), "Pareigybių kategorijos nepriklauso objektui „O04001001“."},
      {list("'O0402000', ''"), "Užklausos parametras „'O0402000', ''“ netinka: laukiama teksto tarp apostrofų."},
      {list("'O0402000','','x'"), "Užklausos parametras „'O0402000','','x'“ netinka: laukiama parametro pabaigos."},
      {list("O0402200", "Nėra = 1"), "Nėra lauko „Nėra“."},
      {list("O0402200", "", "Pavadinimas"), "Sąrašo rikiuoti pagal „Pavadinimas“ negalima."},
  };
  std::vector<std::string> boxes;
  for (const auto& [answer, text] : cases) {
    EXPECT_FALSE(answer) << text;
    boxes.push_back("exclamation, ok, Testas: " + std::string(text));
  }
  company_.fail_statements();
  EXPECT_FALSE(list("O0400600"));
  boxes.push_back("exclamation, ok, Testas: ryšys nutrūko");
  EXPECT_EQ(company_.application().boxes(), boxes);
}

}  // namespace
}  // namespace quor
