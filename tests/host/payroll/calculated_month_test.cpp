#include "host/payroll/calculated_month.h"

#include <gtest/gtest.h>

#include "host/company/working_days.h"
#include "host/payroll/month_comparison.h"
#include "platform/data/error.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(WorkingDays, AreMondaysToFridays) {
  EXPECT_EQ(working_days(day("2008.01.01"), day("2008.01.31")), 23);
  EXPECT_EQ(working_days(day("2008.02.01"), day("2008.02.29")), 21);
  EXPECT_EQ(working_days(day("2008.01.05"), day("2008.01.06")), 0);  // Saturday and Sunday
  EXPECT_EQ(working_days(day("2008.01.04"), day("2008.01.07")), 2);
  EXPECT_EQ(working_days(day("2008.01.07"), day("2008.01.04")), 0);
}

class CalculatedMonthTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.database().execute(
        "UPDATE settings SET personal_time_code_id_list = '2,5', extra_charge_percentage = 55,"
        " surcharge_percentage = 60, total_charge_percentage = 70");
    company_.given_time_codes();
    category_ = company_.given_category("A lygis", {{"2005.01.01", 9.7}});  // 1260 a month at 130
    department_ = company_.given_department("Skyrius");
  }

  std::int32_t given_person(const char* name, double share = 1.0, const char* from = "2005.01.01",
                            const Variant& to = kNull) {
    const auto person = company_.given_employee(name, department_);
    given_position(person, share, from, to);
    return person;
  }
  void given_position(std::int32_t person, double share, const char* from = "2005.01.01", const Variant& to = kNull) {
    const std::string norm = "N" + std::to_string(++positions_);
    company_.given_position(
        {.employee = person, .category = category_, .share = share, .from = from, .to = to, .norm = norm.c_str()});
  }
  // Another program's write: what was kept is read again.
  void touch() { Transaction(company_.database()).commit(); }
  void change(const std::string& sql, const std::vector<Variant>& values = {}) {
    company_.database().execute(sql, values);
    touch();
  }
  CalculatedMonth calculate(const char* month = "2008-01", const MonthOptions& options = {}) {
    return calculate_month(company_.application(), Month::parse(month), options);
  }
  // "Person: base pay; supplements; surcharges; check" of each row.
  std::string pay(const CalculatedMonth& run) {
    std::string text;
    for (auto& rows = *run.rows; !rows.Eof(); rows.MoveNext()) {
      text += text.empty() ? "" : " | ";
      for (const char* field : {"Person", "BasePay", "Supplements", "Surcharges", "Check"}) {
        text += (field == std::string("Person") ? "" : ";") + null_to_text(rows.field(field));
      }
    }
    return text;
  }
  // Everything that a calculation writes.
  std::string stored() {
    std::string text;
    for (const char* table : {"documents", "time_rows", "salary_rows"}) {
      const auto rows = company_.database().read(std::string("SELECT id, guid FROM ") + table + " ORDER BY id",
                                                 {{"id", FieldType::kInt32}, {"guid", FieldType::kText}});
      text += rows_text(*rows) + "\n";
    }
    return text;
  }
  // Whose document says what, without the rows' own IDs.
  std::string stored_pay() {
    const auto rows = company_.database().read(
        "SELECT d.employee_id, r.sum_a, t.hours FROM documents d LEFT JOIN salary_rows r ON r.document_id = d.id"
        " LEFT JOIN time_rows t ON t.guid = r.time_row_guid AND t.document_id = d.id ORDER BY d.employee_id, r.sum_a",
        {{"person", FieldType::kInt32}, {"sum", FieldType::kDouble}, {"hours", FieldType::kDouble}});
    return rows_text(*rows);
  }
  std::int32_t rows_in(const char* table) { return count(company_.database(), table); }

  TestCompany company_{GetParam()};
  std::int32_t category_ = 0, department_ = 0, positions_ = 0;
};

TEST_P(CalculatedMonthTest, TheRowsAreCheckedAgainstTheLimits) {
  // 1260 a month: 55 % are 693, 70 % are 882; an hour of overtime earns 7,76.
  const struct {
    const char* name;
    double supplement, surcharge_hours;
    std::string check;
  } cases[] = {{"AtTheLimit", 693, 0, ""},  // in the order of the alphabet
               {"OneCentOver", 693.01, 0, "CheckSalaryRows: Priedų suma viršija 55%!"},
               {"SurchargeOver", 0, 97.5, "CheckSalaryRows: Priemokų suma viršija 60%!"},
               {"SurchargeWithin", 0, 97.4, ""},
               {"TotalOver", 500, 50, "CheckSalaryRows: Priedų ir priemokų suma viršija 70%!"}};
  for (const auto& c : cases) {
    const auto person = given_person(c.name);
    company_.given_charge(person, kNull, kNull, c.supplement);
    company_.given_time(person, 1, 184);
    if (c.surcharge_hours > 0) company_.given_time(person, 2, c.surcharge_hours);
  }
  const CalculatedMonth run = calculate();
  for (const auto& c : cases) {
    EXPECT_EQ(null_to_text(run.rows->field("Person")) + null_to_text(run.rows->field("Check")), c.name + c.check);
    run.rows->MoveNext();
  }
  EXPECT_EQ(count(company_.database(), "documents WHERE check_code = 4"), 3);
}

TEST_P(CalculatedMonthTest, SumsAreWholeCents) {
  const auto person = given_person("Adomas", 1.0, "2008.01.16");                         // 657,39 for 12 of 23 days
  for (const double sum : {0.1, 0.2}) company_.given_charge(person, kNull, kNull, sum);  // binary: 0.30000000000000004
  const CalculatedMonth run = calculate();
  EXPECT_EQ(run.rows->field("Supplements").to_double(), 0.3);
  EXPECT_EQ(run.rows->field("Total").to_double(), 657.69);
}

TEST_P(CalculatedMonthTest, AnUnchangedMonthChangesNoRow) {
  const auto person = given_person("Adomas");
  given_person("Benas");
  EXPECT_EQ(calculate().changed, 2);
  const auto before = stored();
  const auto changes = company_.database().change_count();
  EXPECT_EQ(calculate().changed, 0);
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(company_.database().change_count(), changes);

  company_.given_charge(person, kNull, kNull, 50.0);
  touch();
  EXPECT_EQ(calculate().changed, 1);
  EXPECT_NE(stored(), before);
  EXPECT_EQ(rows_in("documents"), 2);
  EXPECT_EQ(calculate("2008-02").changed, 2);
  EXPECT_EQ(rows_in("documents"), 4);
}

TEST_P(CalculatedMonthTest, WhoIsInForceNoMoreLosesTheDocument) {
  const auto other = company_.given_department("Kitas");
  const auto gone = given_person("Adomas");
  given_person("Benas");
  calculate();
  change("UPDATE positions SET date_to = :p0 WHERE employee_id = :p1", {day("2007.12.31"), gone});
  EXPECT_EQ(calculate("2008-01", {.department = other}).changed, 0);  // not of that department
  EXPECT_EQ(calculate().changed, 1);
  EXPECT_EQ(rows_in("documents"), 1);
  EXPECT_EQ(rows_in("salary_rows"), 1);
}

TEST_P(CalculatedMonthTest, OnePersonsFaultIsKeptAndTheOthersGoOn) {
  given_person("Adomas");
  const auto ill = given_person("Benas");
  change("UPDATE positions SET category_id = NULL WHERE employee_id = :p0", {ill});
  const auto old = given_person("Celina");
  company_.given_service(old, day("2005.01.01"), 32767, 11);

  const CalculatedMonth run = calculate();
  EXPECT_EQ(pay(run), "Adomas;1260;0;0;");
  ASSERT_EQ(run.faults.size(), 2U);
  EXPECT_EQ(run.faults[0].person + ": " + run.faults[0].reason,
            "Benas: nėra pareigybės kategorijos koeficiento datai 2008.01.31");
  EXPECT_EQ(rows_in("documents"), 1);
  EXPECT_EQ(rows_in("month_faults"), 2);

  change("UPDATE positions SET category_id = :p0", {category_});
  const auto healed = given_person("Dalia");
  EXPECT_EQ(calculate("2008-01", {.people = {ill, healed}}).faults.size(), 0U);
  EXPECT_EQ(rows_in("month_faults"), 1);  // of who stands between them
  change("UPDATE experience SET experience_years = 1");
  EXPECT_EQ(calculate().faults.size(), 0U);
  EXPECT_EQ(rows_in("month_faults"), 0);

  EXPECT_EQ(calculate("2004-12").all, 0);
  change("UPDATE positions SET date_from = :p0", {day("2004.01.01")});
  const CalculatedMonth none = calculate("2004-12");
  ASSERT_EQ(none.faults.size(), 4U);
  EXPECT_EQ(none.faults[2].reason, "nėra valstybės tarnautojų nustatymų datai 2004.12.31");
}

// A run that begins while another is at work, of other people and another month, and one over the same.
TEST_P(CalculatedMonthTest, RunsDoNotDisturbEachOther) {
  struct Collecting : MonthTaker {
    void begin(const MonthInputs&) override { text.clear(); }
    void take(const PersonInput& person, const PersonMonth& month) override {
      text += person.name + " " + general_text(month.document.sum_of(SumType::kBasePay)) + "; ";
      if (meanwhile) meanwhile();
    }
    bool take_part(const CalculatedPeople& part) override {
      for (const PersonFault& fault : part.faults) text += fault.person + ": " + fault.reason + "; ";
      return true;
    }
    bool take_end() override { return true; }
    std::function<void()> meanwhile;
    std::string text;
  };
  given_person("Adomas");
  const auto half = given_person("Benas", 0.5);
  const auto ill = given_person("Celina");
  change("UPDATE positions SET category_id = NULL WHERE employee_id = :p0", {ill});
  change("INSERT INTO constant_values (id, constant_type_id, date_from, value) VALUES (90, 1, :p0, 140)",
         {day("2008.02.01")});
  Collecting outer, inner;
  int runs = 0;
  outer.meanwhile = [&] {
    ++runs;
    const MonthOptions whom = runs == 1 ? MonthOptions{.people = {half, ill}} : MonthOptions{};
    calculate_people(company_.application(), Month::parse("2008-02"), whom, inner);
    EXPECT_EQ(inner.text, runs == 1 ? "Benas 680; Celina: nėra pareigybės kategorijos koeficiento datai 2008.02.29; "
                                    : "Adomas 1360; Benas 680; Celina: nėra pareigybės kategorijos koeficiento datai "
                                      "2008.02.29; ");
  };
  calculate_people(company_.application(), Month::parse("2008-01"), {}, outer);
  EXPECT_EQ(outer.text, "Adomas 1260; Benas 630; Celina: nėra pareigybės kategorijos koeficiento datai 2008.01.31; ");
  EXPECT_EQ(rows_in("documents"), 0);
}

TEST_P(CalculatedMonthTest, StoppingKeepsWhatIsDoneAndNothingHalf) {
  for (const char* name : {"Adomas", "Benas", "Celina"}) given_person(name);
  int asked = 0;
  const CalculatedMonth run = calculate("2008-01", {.cancelled = [&] { return ++asked > 2; }});
  EXPECT_TRUE(run.cancelled);
  EXPECT_EQ(run.done, 2);
  EXPECT_EQ(rows_in("documents"), 2);
  EXPECT_EQ(calculate().changed, 1);
}

TEST_P(CalculatedMonthTest, WhatChangesMeanwhileIsCalculatedAnew) {
  for (const char* name : {"Adomas", "Benas"}) given_person(name);
  Company other(Database::open(company_.database().name()));
  Application elsewhere(other, {});
  elsewhere.load_plugin(VELMORA_PLUGIN);
  const Month month = Month::parse("2008-01");
  int changes = 0;
  const auto halved = [&](int times, bool calculated) {
    changes = times;
    return [&, calculated](std::int32_t done, std::int32_t all) {
      if (done < all || changes-- <= 0) return;
      Transaction transaction(other.database());
      other.database().execute("UPDATE constant_values SET value = value / 2 WHERE constant_type_id = 1");
      transaction.commit();
      if (calculated) calculate_month(elsewhere, month, {});
    };
  };
  const CalculatedMonth once = calculate("2008-01", {.progress = halved(1, false)});
  EXPECT_EQ(pay(once), "Adomas;630;0;0; | Benas;630;0;0;");
  EXPECT_EQ(once.done, 2);
  EXPECT_EQ(once.changed, 2);
  EXPECT_EQ(once.inputs, company_.database().pay_inputs_count());

  const CalculatedMonth twice = calculate("2008-01", {.progress = halved(2, true)});  // the newer documents stay
  EXPECT_EQ(pay(twice), "Adomas;160;0;0; | Benas;160;0;0;");  // 32,5 by 9,7 is 315,25, then 157,6
  EXPECT_EQ(twice.changed, 0);

  const auto before = stored_pay();
  EXPECT_NE(error_text([&] { calculate("2008-01", {.progress = halved(3, false)}); }).find("metu keičiami"),
            std::string::npos);
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(stored_pay(), before);
  EXPECT_EQ(compare_month(company_.application(), month, {.progress = halved(1, false)}).changed.size(), 2U);
  EXPECT_NE(error_text([&] { compare_month(company_.application(), month, {.progress = halved(3, false)}); }), "");
}

TEST_P(CalculatedMonthTest, APartThatIsStoredBeforeAChangeIsCalculatedAnewToo) {
  given_person("Adomas");
  // 1001 more whose share is none, which costs no time.
  const std::string numbers = " WITH RECURSIVE n (i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 1010)";
  change("INSERT INTO employees (id, name, sort_key, department_id, row_version)" + numbers +
         " SELECT i, 'Be etato', '', 1, 1 FROM n");
  change("INSERT INTO positions (id, employee_id, contract_guid, norm_guid, share, date_from, row_version)" + numbers +
         " SELECT i, i, '', '', 0, 1000, 1 FROM n");
  bool changed = false;
  const CalculatedMonth run = calculate("2008-01", {.progress = [&](std::int32_t done, std::int32_t all) {
                                          if (done < all || std::exchange(changed, true)) return;
                                          EXPECT_EQ(rows_in("documents"), 1);
                                          change("UPDATE constant_values SET value = value * 2");
                                        }});
  EXPECT_EQ(pay(run), "Adomas;2520;0;0;");
  EXPECT_EQ(stored_pay(), "1;2520;184");
  EXPECT_EQ(run.done, 1002);
  EXPECT_EQ(run.faults.size(), 1001U);
  EXPECT_EQ(run.changed, 1);
}

TEST_P(CalculatedMonthTest, AComparisonNamesWhoseDocumentsACalculationWouldChange) {
  for (const char* name : {"Zita", "Šarūnas", "Adomas", "Edita"}) given_person(name);
  const auto compared = [&] {
    const auto changes = company_.database().change_count();
    const MonthComparison found = compare_month(company_.application(), Month::parse("2008-01"));
    EXPECT_EQ(company_.database().change_count(), changes);
    std::string text;
    for (const auto& [list, people] :
         {std::pair{"-", &found.missing}, {"changed", &found.changed}, {"ended", &found.ended}}) {
      for (const NamedPerson& person : *people) {
        text += std::string(list) + " " + std::to_string(person.employee) + " " + person.name + "; ";
      }
    }
    for (const PersonFault& fault : found.faults) text += fault.person + ": " + fault.reason + "; ";
    return text;
  };
  EXPECT_EQ(compared(), "- 3 Adomas; - 4 Edita; - 2 Šarūnas; - 1 Zita; ");
  EXPECT_EQ(rows_in("documents"), 0);
  calculate();
  EXPECT_EQ(compared(), "");
  given_person("Benas");
  company_.database().execute("UPDATE positions SET date_to = :p0 WHERE employee_id = 4", {day("2007.12.31")});
  company_.database().execute("UPDATE positions SET category_id = NULL WHERE employee_id IN (1, 5)");
  company_.given_charge(2, kNull, kNull, 5.0);
  touch();
  EXPECT_EQ(compared(),
            "- 5 Benas; changed 2 Šarūnas; ended 4 Edita;"
            " Benas: nėra pareigybės kategorijos koeficiento datai 2008.01.31;"
            " Zita: nėra pareigybės kategorijos koeficiento datai 2008.01.31; ");
}

// Before each statement another program tries to write; where the run lets it, the run notices.
TEST_P(CalculatedMonthTest, AWriteBetweenAnyTwoStatementsLeavesNoStaleDocument) {
  const auto person = given_person("Adomas");
  company_.given_time(person, 1, 184);
  company_.given_time(person, 2, 10);
  touch();
  Company other(Database::open(company_.database().name()));
  other.database().execute(other.database().on_server() ? "SET lock_timeout = 1" : "PRAGMA busy_timeout = 1");
  const Month month = Month::parse("2008-01");
  int written = 0;
  const auto write = [&] {
    Transaction transaction(other.database());
    other.database().execute("UPDATE constant_values SET value = 390 - value WHERE constant_type_id = 1");
    other.database().execute(
        "UPDATE settings SET personal_time_code_id_list = CASE personal_time_code_id_list WHEN '2' THEN '5' ELSE '2' "
        "END");
    transaction.commit();
    ++written;
  };
  company_.act_between_statements(
      [&] { refusal_of(write); }, [&] { calculate(); },
      [&](std::uint64_t n) {
        const MonthComparison found = compare_month(company_.application(), month);
        EXPECT_EQ(found.missing.size() + found.changed.size() + found.ended.size() + found.faults.size(), 0U) << n;
      });
  EXPECT_GT(written, 3);
}

TEST_P(CalculatedMonthTest, AFailedStatementStopsTheRunAndLeavesEachDocumentWholeOrAsItWas) {
  for (const char* name : {"Adomas", "Benas"}) given_person(name);
  calculate();
  company_.given_charge(1, kNull, kNull, 50.0);
  touch();
  Database& database = company_.database();
  const auto statements_before = database.statements();
  calculate();
  const auto statements = database.statements() - statements_before;
  ASSERT_GT(statements, 20U);
  const auto with_charge = stored_pay();
  change("DELETE FROM extra_charges");
  calculate();
  const auto without_charge = stored_pay();
  ASSERT_NE(with_charge, without_charge);
  company_.given_charge(1, kNull, kNull, 50.0);

  int as_it_was = 0;
  for (std::uint64_t n = 1; n <= statements; ++n) {
    touch();
    fail_one(database, n);
    error_text([&] { EXPECT_EQ(calculate().faults.size(), 0U) << "statement " << n; });
    company_.heal();
    company_.company().refresh();  // what fails at the end of the reading breaks the connection
    const auto now = stored_pay();
    EXPECT_TRUE(now == without_charge || now == with_charge) << "statement " << n << " of " << statements;
    as_it_was += now == without_charge ? 1 : 0;
  }
  EXPECT_GT(as_it_was, 15);
  EXPECT_TRUE(company_.application().boxes().empty());
  touch();
  calculate();
  EXPECT_EQ(stored_pay(), with_charge);
}

TEST_P(CalculatedMonthTest, TheNumberOfStatementsDoesNotGrowWithThePeople) {
  const auto statements = [&] {
    touch();
    const auto before = company_.database().statements();
    calculate();
    return company_.database().statements() - before;
  };
  given_person("Adomas");
  statements();
  const auto for_one = statements();
  for (int i = 0; i < 40; ++i) given_person("Žmogus");
  statements();
  EXPECT_EQ(statements(), for_one);
}

ON_EVERY_DATABASE(CalculatedMonthTest);

}  // namespace
}  // namespace quor
