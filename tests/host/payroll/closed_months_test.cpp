// Months that are closed, opened again and shown as they were paid; how a month stands; writes that reach into one.
#include "host/payroll/closed_months.h"

#include <gtest/gtest.h>

#include "host/company/closed_reach.h"
#include "host/objects/standard_object_uio.h"
#include "host/payroll/calculated_month.h"
#include "host/payroll/month_comparison.h"
#include "host/payroll/month_state.h"
#include "host/store/object_codes.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class ClosedMonths : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.given_time_codes();
    given(
        "UPDATE settings SET personal_time_code_id_list = '2', extra_charge_percentage = 55,"
        " surcharge_percentage = 60, total_charge_percentage = 70");
    category_ = company_.given_category("A lygis", {{"2005.01.01", 9.7}});  // 1260 a month at 130
    given_person("Adomas");
    given_person("Benas");
    company_.given_service(1, day("2005.01.31"), 3, 11);  // 6 whole years: 5 %
  }
  std::int32_t given_person(const char* name) {
    const auto person = company_.given_employee(name, company_.given_department("Skyrius"));
    company_.given_position({.employee = person, .category = category_, .norm = name});
    return person;
  }
  // Another program's write of something that pay follows from.
  void given(const std::string& sql) {
    Transaction transaction(company_.database());
    company_.database().execute(sql);
    transaction.commit();
  }
  CalculatedMonth calculate(const MonthOptions& options = {}) {
    return calculate_month(company_.application(), month_, options);
  }
  std::string closing(const std::optional<std::string>& despite = {}) {
    return error_text([&] { close_month(company_.application(), month_, despite); });
  }
  std::string line() { return month_state_line(month_state(company_.application(), month_)); }
  std::string shown() {
    company_.company().refresh();
    return company_.get("OfficeEmployeePreview", "'2008.01.31',0") + " / " +
           company_.get("OfficeEmployeeSettings", "'2008.01.15'");
  }
  // Without the moments.
  std::string history() {
    std::string text;
    for (const MonthClosing& each : closings_of(company_.database(), month_)) {
      text += std::string(each.closed ? "+" : "-") + each.by + ":" + each.reason + " ";
    }
    return text;
  }

  TestCompany company_{GetParam()};
  const Month month_ = Month::parse("2008-01");
  std::int32_t category_ = 0;
};
ON_EVERY_DATABASE(ClosedMonths);

TEST_P(ClosedMonths, ClosingIsRefusedWhenTheDocumentsAreNotThoseOfToday) {
  const std::string refused = "Mėnesio 2008.01 uždaryti negalima:\n";
  EXPECT_EQ(closing(), refused + "mėnuo neapskaičiuotas");
  const struct {
    const char* sql;  // on a month of which every document is of today
    const char* text;
    const char* line;
  } cases[] = {
      {"UPDATE documents SET check_message = check_message || 'x' WHERE employee_id = 1",
       "dokumentų, kurie pasikeistų: 1 (Adomas)", "2008.01: po skaičiavimo pakeista duomenų (1 žmogaus)"},
      // The sums stay, what they were made from does not.
      {"UPDATE settings SET surcharge_percentage = 61", "dokumentų, kurie pasikeistų: 2 (Adomas, Benas)",
       "2008.01: po skaičiavimo pakeista duomenų (2 žmonių)"},
      {"UPDATE categories SET name = 'B lygis'", "dokumentų, kurie pasikeistų: 2 (Adomas, Benas)",
       "2008.01: po skaičiavimo pakeista duomenų (2 žmonių)"},
      {"UPDATE experience SET experience_years = 4", "dokumentų, kurie pasikeistų: 1 (Adomas)",
       "2008.01: po skaičiavimo pakeista duomenų (1 žmogaus)"},
      {"UPDATE documents SET month = 39479 WHERE employee_id = 1", "žmonių be dokumento: 1 (Adomas)",
       "2008.01: po skaičiavimo pakeista duomenų (1 žmogaus)"},
      {"UPDATE positions SET date_to = 39447 WHERE employee_id = 1",
       "dokumentų žmonių, kurie tą mėnesį nedirbo: 1 (Adomas)", "2008.01: po skaičiavimo pakeista duomenų (1 žmogaus)"},
      {"UPDATE positions SET category_id = NULL WHERE employee_id = 2",
       "klaidų: 1 (Benas: nėra pareigybės kategorijos koeficiento datai 2008.01.31)",
       "2008.01: klaidos: Benas (nėra pareigybės kategorijos koeficiento datai 2008.01.31; rodomas ankstesnis "
       "skaičiavimas)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.sql);
    calculate();
    EXPECT_EQ(line(), "");
    given(c.sql);
    EXPECT_EQ(line(), c.line);
    const auto statements = company_.database().statements();
    EXPECT_EQ(line(), c.line);
    EXPECT_LT(company_.database().statements() - statements, 12U) << "found once, then remembered";
    EXPECT_EQ(closing(), refused + c.text);
  }
  EXPECT_EQ(history(), "");
  EXPECT_EQ(closing(" "), "Nenurodyta priežastis.");
  EXPECT_EQ(closing("atskaitomybė\nvėluoja"), "Priežastis turi būti viena eilutė, ne ilgesnė kaip 500 ženklų.");
  EXPECT_EQ(closing("vėluoja"), "no error");
  EXPECT_EQ(history(), "+testuotoja:vėluoja ");
}

// Before each statement of a closing another program tries to double the tariff or to halve it again.
TEST_P(ClosedMonths, AWriteBetweenAnyTwoStatementsOfAClosingIsNoticed) {
  calculate();
  Company other(Database::open(company_.database().name()));
  other.database().execute(other.database().on_server() ? "SET lock_timeout = 1" : "PRAGMA busy_timeout = 1");
  const auto write = [&] {
    Transaction transaction(other.database());
    other.database().execute("UPDATE constant_values SET value = 390 - value WHERE constant_type_id = 1");
    transaction.commit();
  };
  int refused = 0;
  bool closed = false;
  company_.act_between_statements([&] { refusal_of(write); }, [&] { closed = closing() == "no error"; },
                                  [&](std::uint64_t n) {
                                    if (closed) reopen_month(company_.application(), month_, "dar kartą");
                                    EXPECT_EQ(closed, compare_month(company_.application(), month_).changed.empty())
                                        << n;
                                    refused += closed ? 0 : 1;
                                    calculate();
                                  });
  EXPECT_GT(refused, 3);
}

TEST_P(ClosedMonths, WhoClosedAndOpenedAMonthIsKept) {
  calculate();
  EXPECT_EQ(closing(), "no error");
  EXPECT_EQ(closing(), "Mėnuo 2008.01 jau uždarytas.");
  EXPECT_EQ(closing("vis tiek"), "Mėnuo 2008.01 jau uždarytas.");
  EXPECT_EQ(error_text([&] { calculate(); }), "Mėnuo 2008.01 uždarytas: jo perskaičiuoti negalima.");
  EXPECT_EQ(line().substr(0, 31), "2008.01: uždarytas (testuotoja");
  const auto reopening = [&](const char* reason) {
    return error_text([&] { reopen_month(company_.application(), month_, reason); });
  };
  EXPECT_EQ(reopening(""), "Nenurodyta priežastis.");
  EXPECT_EQ(reopening("klaida"), "no error");
  EXPECT_EQ(reopening("klaida"), "Mėnuo 2008.01 nėra uždarytas.");
  EXPECT_EQ(closing(), "no error");
  EXPECT_EQ(history(), "+testuotoja: -testuotoja:klaida +testuotoja: ");
}

TEST_P(ClosedMonths, AClosedMonthIsShownAsItWasPaid) {
  company_.given_charge(1, kNull, kNull, 10.0);
  calculate();
  const std::string paid = shown();
  EXPECT_EQ(paid.substr(0, paid.find(" / ")), "1;Adomas;A lygis;9,7;130;1260 | 2;Benas;A lygis;9,7;130;1260");
  ASSERT_EQ(closing(), "no error");
  company_.database().execute("UPDATE experience SET changed_at = (SELECT closed_at FROM closed_months)");
  EXPECT_EQ(line().find("stažas"), std::string::npos) << "recorded before, in the same minute";
  company_.database().execute("UPDATE experience SET changed_at = NULL");
  EXPECT_EQ(shown(), paid);
  for (const char* change : {"UPDATE category_rows SET factor = 10", "UPDATE categories SET name = 'C'",
                             "UPDATE constant_values SET value = 140",
                             "UPDATE settings SET extra_charge_percentage = 5,"
                             " personal_time_code_id_list = '3'",
                             "UPDATE settings_rows SET percentage = 9",
                             "UPDATE positions SET share = 0.5, date_to = 39000 WHERE employee_id = 2"}) {
    given(change);
    EXPECT_EQ(shown(), paid) << change;
  }
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.02.29',0"), "1;Adomas;C;10;140;1400") << "an open month";
  // Service is asked for without a date: what is recorded after the closing is told.
  EXPECT_EQ(line().find("stažas"), std::string::npos);
  given("UPDATE experience SET changed_at = (SELECT closed_at FROM closed_months)");
  EXPECT_NE(line().find("; po uždarymo iš naujo įrašytas stažas ar priedai (1 žmogaus): jie rodomi dabartiniai"),
            std::string::npos);
  reopen_month(company_.application(), month_, "klaida");
  EXPECT_NE(shown(), paid);

  // Closed with a document that keeps nothing, what is in force answers.
  const std::string in_force = shown();
  given("UPDATE documents SET settings_guid = NULL WHERE employee_id = 1");
  ASSERT_EQ(closing("senas"), "no error");
  EXPECT_EQ(shown(), in_force);
}

TEST_P(ClosedMonths, TheStateOfAMonthIsOneLine) {
  EXPECT_EQ(line(), "2008.01: neapskaičiuotas");
  calculate({.department = 1});
  EXPECT_EQ(line(), "2008.01: neapskaičiuota žmonių: 1");
  given("UPDATE positions SET category_id = NULL WHERE employee_id = 2");
  calculate();
  EXPECT_EQ(line(), "2008.01: klaidos: Benas (nėra pareigybės kategorijos koeficiento datai 2008.01.31)");
  Transaction(company_.database(), Writes::kOther).commit();
  const auto statements = company_.database().statements();
  line();
  EXPECT_LT(company_.database().statements() - statements, 8U) << "nothing is calculated while a whole run holds";

  MonthState state{.month = month_, .calculated = true, .changed = 111};
  for (const char* name : {"A", "B", "C", "D", "E", "F", "G"}) state.faults.push_back({{1, name, "x"}, false});
  EXPECT_EQ(
      month_state_line(state),
      "2008.01: po skaičiavimo pakeista duomenų (111 žmonių); klaidos: A (x), B (x), C (x), D (x), E (x) ir dar 2");
  EXPECT_EQ(month_state_line({.month = month_, .calculated = true, .changed = 21}),
            "2008.01: po skaičiavimo pakeista duomenų (21 žmogaus)");
}

TEST_P(ClosedMonths, AWriteReachesIntoTheMonthsOnWhoseDaysSomethingElseHolds) {
  struct Case {
    const char* table;
    const char* sql;
    const char* reached;  // "row: months"
  };
  // Closed are 2008.01 (39448 to 39478) and 2008.03 (39508 to 39538); Adomas has a document of 2008.01.
  const Case cases[] = {
      {"category_rows", "UPDATE category_rows SET factor = 9.8", "1: 2008.01, 2008.03 "},
      {"categories", "UPDATE category_rows SET date_from = 39448", ""},
      {"categories", "UPDATE category_rows SET date_from = 39449", "1: 2008.01 "},
      {"category_rows", "INSERT INTO category_rows VALUES (7, 'g', 1, 39538, 10)", "1: 2008.03 7: 2008.03 "},
      {"category_rows", "INSERT INTO category_rows VALUES (7, 'g', 1, 39539, 10)", ""},
      {"category_rows", "INSERT INTO category_rows VALUES (7, 'g', 1, 39450, 9.7)", ""},
      {"category_rows", "INSERT INTO category_rows VALUES (7, 'g', 1, 39479, 10), (8, 'h', 1, 39508, 9.7)", ""},
      {"category_rows", "DELETE FROM category_rows", "1: 2008.01, 2008.03 "},
      {"constant_values", "UPDATE constant_values SET value = 1 WHERE id = 2", "2: 2008.01, 2008.03 "},
      {"settings", "UPDATE settings SET guid = 'x'", ""},
      {"settings", "UPDATE settings SET total_charge_percentage = 71", "1: 2008.01, 2008.03 "},
      {"settings_rows", "UPDATE settings_rows SET percentage = 4 WHERE id = 1", "1: 2008.01, 2008.03 "},
      {"settings", "INSERT INTO settings (id, guid, date_from, row_version) VALUES (7, 'x', 39479, 1)",
       "1: 2008.03 7: 2008.03 "},
      {"positions", "UPDATE positions SET date_to = 39538 WHERE id = 2", ""},
      {"positions", "UPDATE positions SET date_to = 39537 WHERE id = 2", "2: 2008.03 "},
      {"positions", "UPDATE positions SET share = 0.5, date_from = 39478 WHERE id = 2", "2: 2008.01, 2008.03 "},
      {"positions", "UPDATE positions SET date_to = 9999999 WHERE id = 2", ""},  // no day: never
      {"positions", "UPDATE positions SET date_to = -9999999 WHERE id = 2", "2: 2008.01, 2008.03 "},
      {"extra_charges", "UPDATE extra_charges SET comment = 'a'", ""},
      {"extra_charges", "UPDATE extra_charges SET sum_a = 11", "1: 2008.01 "},
      {"extra_charges", "UPDATE extra_charges SET date_to = 39479 WHERE id = 1", ""},
      {"experience", "UPDATE experience SET experience_months = 10", "1: 2008.01 "},
      {"month_norms", "INSERT INTO month_norms VALUES (39479, 160)", ""},
      {"month_norms", "INSERT INTO month_norms VALUES (39448, 160)", "39448: 2008.01 "},
      {"employees", "UPDATE employees SET name = 'X'", ""},
  };
  for (const std::int32_t person : {1, 2}) company_.given_charge(person, kNull, day("2008.02.29"), 10.0);
  company_.given_service(2, kNull, 1, 1);
  Database& database = company_.database();
  company_.given_document(1);
  database.execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, '', ''), (39508, '', '')");
  for (const Case& c : cases) {
    const Transaction rolled_back(database);
    ClosedReach reach(database, c.table);
    database.execute(c.sql);
    std::string reached;
    for (const auto& [row, months] : reach.reached()) reached += std::to_string(row) + ": " + months_text(months) + " ";
    EXPECT_EQ(reached, c.reached) << c.sql;
  }
}

TEST_P(ClosedMonths, WhatReachesIntoOneIsAskedAboutAndStoredWithAYesAlone) {
  calculate();
  ASSERT_EQ(closing(), "no error");
  TestApplication& application = company_.application();
  StandardObjectUIO category(application, company_.company(), "Ona", kCategoryType);
  category.OIDR("O04022001");
  ASSERT_EQ(category.Read().ErrorText, "");
  const auto set_factor = [&](double factor) {
    category.Fields()["Rows"].Value().record_set()->Fields()["Factor"].Value(factor);
    return category.Save(0, "").ErrorText;
  };
  const auto stored = [&](const char* from) { return count(company_.database(), from); };
  EXPECT_EQ(set_factor(9.8), "Pakeitimas siekia uždarytą mėnesį 2008.01.");
  EXPECT_EQ(application.boxes(),
            std::vector<std::string>{"question, yesno, Testas: Pakeitimas siekia uždarytą mėnesį 2008.01. Uždaryti "
                                     "dokumentai nesikeis. Ar tikrai įrašyti?"});
  EXPECT_EQ(stored("category_rows WHERE factor = 9.8"), 0);
  application.answer(BoxAnswer::kYes);
  EXPECT_EQ(set_factor(9.8), "");
  EXPECT_EQ(stored("category_rows WHERE factor = 9.8"), 1);

  const auto services = company_.rows("OfficeEmployeeExperience");
  services->Fields()["ExperienceYears"].Value(5);
  const auto bo = application.NewMainBO();
  EXPECT_TRUE(bo->SaveRecordset("OfficeEmployeeExperience", *services).Failed);
  EXPECT_EQ(stored("experience WHERE experience_years = 5"), 0);
  application.answer(BoxAnswer::kYes);
  EXPECT_FALSE(bo->SaveRecordset("OfficeEmployeeExperience", *services).Failed);
  EXPECT_EQ(stored("experience WHERE experience_years = 5"), 1);
}

}  // namespace
}  // namespace quor
