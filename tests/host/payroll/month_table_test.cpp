// Months by hand: January 2008 has 23 working days, 184 hours. A post of category 0 is paid 1260 a month (130 by 9,7 is
// 1261), of category 1 650 (130 by 5); an hour of overtime 0,8 by the factor of the first post.
#include <gtest/gtest.h>
#include <map>
#include <optional>

#include "host/payroll/calculated_month.h"
#include "tests/support/test_company.h"
#include "tests/support/text_table.h"

namespace quor {
namespace {

constexpr std::int32_t kFd = 1, kOvertime = 2, kIll = 3;

struct Post {
  double share = 1;
  const char* from = "2005.01.01";
  const char* to = nullptr;
  std::size_t category = 0;
};
struct Time {
  std::int32_t code;
  double hours;
  const char* day = nullptr;
};
struct Charge {
  Variant sum = kNull;
  Variant percentage = kNull;
  const char* from = nullptr;
  const char* to = nullptr;
  const char* tied = nullptr;
};
struct Case {
  const char* name;
  std::vector<Post> posts;
  std::vector<Time> time;
  std::vector<Charge> charges;
  const char* expected;  // base pay of each post; supplements; surcharges; hours of each time row; salary rows
};

const Case kCases[] = {
    {"whole month", {{}}, {}, {}, "1260; 0; 0; 184; 1"},
    {"post from the last day", {{1, "2008.01.31"}}, {}, {}, "54,78; 0; 0; 8; 1"},
    {"post from the day after", {{1, "2008.02.01"}}, {}, {}, ""},
    {"post until the first day", {{1, "2005.01.01", "2008.01.01"}}, {}, {}, "54,78; 0; 0; 8; 1"},
    {"post until the day before", {{1, "2005.01.01", "2007.12.31"}}, {}, {}, ""},
    {"post of a weekend", {{1, "2008.01.26", "2008.01.27"}}, {}, {}, "0; 0; 0; ; 0"},
    {"month's hours over a part-month post", {{1, "2008.01.16"}}, {{kFd, 92}}, {}, "328,7; 0; 0; 48; 1"},
    {"hours of the post's days",
     {{1, "2008.01.10", "2008.01.20"}},
     {{kFd, 8, "2008.01.09"},
      {kFd, 8, "2008.01.10"},
      {kFd, 8, "2008.01.18"},
      {kFd, 4, "2008.01.20"},
      {kFd, 8, "2008.01.21"}},
     {},
     "136,96; 0; 0; 20; 1"},
    {"days of two posts",
     {{1, "2005.01.01", "2008.01.15"}, {0.5, "2008.01.16"}},
     {{kFd, 8, "2008.01.15"}, {kFd, 6, "2008.01.16"}},
     {},
     "54,78+20,54; 0; 0; 8+6; 2"},
    {"hours of the month and of a day", {{}}, {{kFd, 100}, {kFd, 8, "2008.01.31"}}, {}, "739,57; 0; 0; 108; 1"},
    {"overtime alone", {{}}, {{kOvertime, 10}}, {}, "1260; 0; 77,6; 184+10; 2"},
    {"overtime by the first post's factor",
     {{0.5, "2006.01.01", nullptr, 1}, {0.5, "2005.01.01"}},
     {{kOvertime, 10}},
     {},
     "630+325; 0; 77,6; 184+184+10; 3"},
    {"overtime of two days",
     {{}},
     {{kOvertime, 1, "2008.01.02"}, {kOvertime, 2, "2008.01.03"}},
     {},
     "1260; 0; 23,28; 184+3; 2"},
    {"half the month ill", {{}}, {{kFd, 92}, {kIll, 92}}, {}, "630; 0; 0; 92+92; 1"},
    {"ill without a word of work", {{}}, {{kIll, 92}}, {}, "yra kitų laiko kodų, bet nėra FD"},
    {"ill and overtime", {{}}, {{kOvertime, 10}, {kIll, 92}}, {}, "yra kitų laiko kodų, bet nėra FD"},
    {"not worked", {{}}, {{kFd, 0}}, {{kNull, 10.0}}, "0; 0; 0; ; 0"},
    {"ill all month", {{}}, {{kFd, 0}, {kIll, 184}}, {{50.0}}, "0; 50; 0; 184; 1"},
    {"charge from the last day", {{}}, {}, {{70.0, kNull, "2008.01.31"}}, "1260; 70; 0; 184; 2"},
    {"charge from the day after", {{}}, {}, {{70.0, kNull, "2008.02.01"}}, "1260; 0; 0; 184; 1"},
    {"charge until the first day", {{}}, {}, {{70.0, kNull, nullptr, "2008.01.01"}}, "1260; 70; 0; 184; 2"},
    {"charge until the day before", {{}}, {}, {{70.0, kNull, nullptr, "2007.12.31"}}, "1260; 0; 0; 184; 1"},
    {"percentage of all posts",
     {{0.5}, {0.5, "2006.01.01", nullptr, 1}},
     {},
     {{kNull, 10.0}},
     "630+325; 95,5; 0; 184+184; 3"},
    {"percentage of the worked part", {{}}, {{kFd, 92}}, {{0.0, 10.0}}, "630; 63; 0; 92; 2"},
    {"sum before percentage", {{}}, {}, {{70.0, 10.0}}, "1260; 70; 0; 184; 2"},
    {"tied to the service", {{}}, {}, {{kNull, 99.0, nullptr, nullptr, "O0402000"}}, "1260; 63; 0; 184; 2"},
    {"charges of nothing", {{}}, {}, {{}, {kNull, 0.0001}}, "1260; 0; 0; 184; 1"},
};

class MonthTable : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    change("UPDATE settings SET personal_time_code_id_list = '2,5'");
    company_.given_time_codes();
    categories_[0] = company_.given_category("A lygis", {{"2005.01.01", 9.7}});
    categories_[1] = company_.given_category("B lygis", {{"2005.01.01", 5.0}});
    department_ = company_.given_department("Skyrius");
  }

  void change(const std::string& sql, const std::vector<Variant>& values = {}) {
    Transaction transaction(company_.database());
    company_.database().execute(sql, values);
    transaction.commit();
  }
  static Variant day_or_null(const char* text) { return text == nullptr ? Variant(kNull) : Variant(day(text)); }

  std::int32_t given(const Case& c) {
    const auto person = company_.given_employee(c.name, department_);
    company_.given_service(person, day("2005.01.31"), 3, 11);  // 6 whole years: 5 %
    for (const Post& post : c.posts) {
      const std::string norm = "N" + std::to_string(++rows_);
      company_.given_position({.employee = person,
                               .category = categories_[post.category],
                               .share = post.share,
                               .from = post.from,
                               .to = day_or_null(post.to),
                               .norm = norm.c_str()});
    }
    for (const Time& time : c.time) company_.given_time(person, time.code, time.hours, day_or_null(time.day));
    for (const Charge& charge : c.charges) {
      const auto id = company_.given_charge(person, day_or_null(charge.from), day_or_null(charge.to), charge.sum);
      change("UPDATE extra_charges SET percentage = :p0, salary_extra_oid = :p1 WHERE id = :p2",
             {charge.percentage, charge.tied == nullptr ? Variant(kNull) : Variant(charge.tied), id});
    }
    return person;
  }

  CalculatedMonth calculate() { return calculate_month(company_.application(), Month::parse("2008-01"), {}); }

  // As `expected` of a case; "" for who is not in the month.
  std::string month_of(const CalculatedMonth& run, const char* name, std::int32_t person) {
    for (const PersonFault& fault : run.faults) {
      if (fault.employee == person) return fault.reason;
    }
    std::string pay, sums;
    bool in_person = false;
    for (run.rows->MoveFirst(); !run.rows->Eof(); run.rows->MoveNext()) {
      const std::string shown = null_to_text(run.rows->field("Person"));
      in_person = shown.empty() ? in_person : shown == name;
      if (!in_person) continue;
      if (pay.empty()) {
        sums = "; " + null_to_text(run.rows->field("Supplements")) + "; " + null_to_text(run.rows->field("Surcharges"));
      }
      pay += (pay.empty() ? "" : "+") + null_to_text(run.rows->field("BasePay"));
    }
    if (pay.empty()) return "";
    const auto times = company_.database().read(
        "SELECT r.hours FROM time_rows r JOIN documents d ON d.id = r.document_id WHERE d.employee_id = :p0"
        " ORDER BY r.id",
        {{"Hours", FieldType::kDouble}}, {person});
    std::string hours;
    for (; !times->Eof(); times->MoveNext()) {
      hours += (hours.empty() ? "" : "+") + null_to_text(times->field("Hours"));
    }
    return pay + sums + "; " + hours + "; " +
           std::to_string(count(company_.database(),
                                "salary_rows r JOIN documents d ON d.id = r.document_id WHERE d.employee_id = :p0",
                                {person}));
  }

  TestCompany company_{GetParam()};
  std::int32_t categories_[2] = {}, department_ = 0, rows_ = 0;
};

TEST_P(MonthTable, PaysByPostTimeAndCharges) {
  std::vector<std::int32_t> people;
  for (const Case& c : kCases) people.push_back(given(c));
  const CalculatedMonth run = calculate();
  std::int32_t documents = 0;
  for (std::size_t i = 0; i < std::size(kCases); ++i) {
    EXPECT_EQ(month_of(run, kCases[i].name, people[i]), kCases[i].expected) << kCases[i].name;
    documents += std::string(kCases[i].expected).find(';') == std::string::npos ? 0 : 1;
  }
  EXPECT_EQ(count(company_.database(), "documents"), documents);
}

// What is stored (behind UPDATE), whose fault it is when not that of Benas, and the fault; none for the last value that
// is still possible.
constexpr char kImpossible[] = R"(
  experience SET experience_years = 80 OF BENAS               |           |
  experience SET experience_years = 81 OF BENAS               |           | tarnybos stažo metai 81 (turi būti nuo 0 iki 80)
  experience SET experience_years = 40000 OF BENAS            |           | tarnybos stažo metai 40000 (turi būti nuo 0 iki 80)
  experience SET experience_years = -1 OF BENAS               |           | tarnybos stažo metai -1 (turi būti nuo 0 iki 80)
  experience SET experience_months = 12 OF BENAS              |           | tarnybos stažo mėnesiai 12 (turi būti nuo 0 iki 11)
  experience SET date_experience = 9999999 OF BENAS           |           | tarnybos stažo data ne kalendoriaus diena (turi būti nuo 1900.01.01 iki 2999.12.31)
  positions SET share = 2 OF BENAS                            |           |
  positions SET share = 2.01 OF BENAS                         |           | etato dalis 2,01 (turi būti daugiau kaip 0 iki 2)
  positions SET share = 0 OF BENAS                            |           | etato dalis 0 (turi būti daugiau kaip 0 iki 2)
  positions SET date_from = 1 OF BENAS                        |           | pareigų pradžia 1899.12.31 (turi būti nuo 1900.01.01 iki 2999.12.31)
  positions SET date_from = 2 OF BENAS                        |           |
  positions SET date_to = 9999999 OF BENAS                    |           | pareigų pabaiga ne kalendoriaus diena (turi būti nuo 1900.01.01 iki 2999.12.31)
  worked_time SET hours = 24 WHERE day IS NOT NULL            |           |
  worked_time SET hours = 24.5 WHERE day IS NOT NULL          |           | dienos 2008.01.31 valandos 24,5 (turi būti nuo 0 iki 24)
  worked_time SET hours = 745 WHERE day IS NULL               |           | mėnesio valandos 745 (turi būti nuo 0 iki 744)
  worked_time SET hours = -1 WHERE day IS NULL                |           | mėnesio valandos -1 (turi būti nuo 0 iki 744)
  extra_charges SET sum_a = -0.01                             |           | priedo suma -0,01 (turi būti nuo 0 iki 1000000)
  extra_charges SET percentage = 1001                         |           | priedo procentas 1001 (turi būti nuo 0 iki 1000)
  extra_charges SET date_to = 9999999                         |           | priedo pabaiga ne kalendoriaus diena (turi būti nuo 1900.01.01 iki 2999.12.31)
  category_rows SET factor = 1001 WHERE category_id = 1       | everybody | kategorijos „A lygis“ koeficientas 1001 (turi būti daugiau kaip 0 iki 1000)
  constant_values SET value = -130 WHERE constant_type_id = 1 | everybody | bazinė alga -130 (turi būti daugiau kaip 0 iki 1000000)
  settings SET extra_charge_percentage = 1000                 |           |
  settings SET extra_charge_percentage = 70000                | everybody | nustatymai nuo 2005.01.01: priedų riba 70000 (turi būti nuo 0 iki 1000)
  settings SET personal_time_code_id_list = '2; 3'            | everybody | nustatymai nuo 2005.01.01: priemokų kodų sąrašas „2; 3“ (turi būti numeriai, atskirti kableliais be tarpų)
  settings_rows SET year_to = 100                             |           |
  settings_rows SET year_to = 70000                           | everybody | nustatymai nuo 2005.01.01: stažo skalės metai iki 70000 (turi būti nuo 0 iki 100)
  settings_rows SET year_from = 6                             | everybody | nustatymai nuo 2005.01.01: stažo skalės eilutė nuo 6 iki 5 metų (metai nuo turi būti ne didesni)
)";

// Three people, of whom the second has something of everything; what is stored is changed for one calculation.
TEST_P(MonthTable, AnImpossibleValueIsTheFaultOfWhoseItIs) {
  given({"Adomas", {{}}, {}, {}, ""});
  given({"Benas", {{}}, {{kFd, 100}, {kFd, 8, "2008.01.31"}}, {{70.0}}, ""});
  given({"Celina", {{}}, {}, {}, ""});
  const std::map<std::string, std::string> possible = {
      {"experience", "experience_years = 3, experience_months = 11, date_experience = 38383"},
      {"positions", "share = 1, date_from = 38353, date_to = NULL"},
      {"worked_time", "hours = 8"},
      {"settings", "personal_time_code_id_list = '2,5', extra_charge_percentage = NULL, date_from = 38353"},
      {"settings_rows", "year_from = 3, year_to = 5, percentage = 3"},
      {"extra_charges", "sum_a = 70, percentage = NULL, date_from = NULL, date_to = NULL"},
      {"category_rows", "factor = 9.7"},
      {"constant_values", "value = 130 WHERE constant_type_id = 1"}};
  for (const auto& c : text_table(kImpossible)) {
    SCOPED_TRACE(c[0]);
    std::string stored = c[0];
    if (const auto at = stored.find("OF BENAS"); at != stored.npos) stored.replace(at, 8, "WHERE employee_id = 2");
    change("UPDATE " + stored);
    const CalculatedMonth run = calculate();
    const bool everybodys = c[1] == "everybody";
    EXPECT_EQ(run.faults.size(), c[2].empty() ? 0U : everybodys ? 3U : 1U);
    for (const PersonFault& fault : run.faults) {
      EXPECT_EQ(fault.reason, c[2]);
      EXPECT_TRUE(everybodys || fault.person == "Benas");
    }
    EXPECT_EQ(company_.rows("OfficeEmployeeExperience")->RecordCount(), 3);
    EXPECT_EQ(company_.rows("OfficeEmployeeExtraCharges")->RecordCount(), 1);
    EXPECT_EQ(company_.rows("OfficeEmployeePreview", "'2008.01.31',0")->RecordCount(), 3);
    EXPECT_GT(company_.rows("OfficeEmployeeSettings", "'2008.01.31'")->RecordCount(), 0);
    const std::string table = stored.substr(0, stored.find(' '));
    change("UPDATE " + table + " SET " + possible.at(table));
    EXPECT_EQ(calculate().faults.size(), 0U);
  }
  change("INSERT INTO month_norms (month, hours) VALUES (:p0, 0)", {day("2008.01.01")});
  EXPECT_EQ(calculate().faults.at(2).reason, "mėnesio 2008.01 norma 0 (turi būti daugiau kaip 0 iki 744)");
}

// The engine goes on after some of these and would say something else.
TEST_P(MonthTable, AFailingRequestIsThePersonsReason) {
  given({"Adomas", {{}}, {{kOvertime, 1}}, {}, ""});
  for (const char* request : {"SalaryConstants", "SalaryExtraRow", "OfficeEmployeeCategory", "OfficeEmployeeSettings",
                              "OfficeEmployeeExperience"}) {
    company_.application().refuse(std::string("Get") + request, "nepavyko\r\nperskaityti");
    const CalculatedMonth run = calculate();
    ASSERT_EQ(run.faults.size(), 1U) << request;
    EXPECT_EQ(run.faults[0].reason, "nepavyko perskaityti") << request;
    EXPECT_EQ(count(company_.database(), "month_faults"), 1) << "kept, although no document has changed";
    company_.application().answers.clear();
    EXPECT_EQ(calculate().faults.size(), 0U);
  }
  EXPECT_TRUE(company_.application().boxes().empty());
}

ON_EVERY_DATABASE(MonthTable);

}  // namespace
}  // namespace quor
