// What the previews and the printed lists ask of the business object.
#include <gtest/gtest.h>

#include "engine/month_salary.h"
#include "host/payroll/calculated_month.h"
#include "host/requests/position_salary.h"
#include "host/sample/sample_company.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class PreviewRequests : public testing::TestWithParam<Backend> {
 protected:
  void run(const std::string& sql) { company_.database().execute(sql); }
  // Pays that a calculation would have stored: "type, sum, time code" each.
  struct Pay {
    int type;
    double sum;
    std::int32_t time_code = 0;
  };
  void given_document(std::int32_t employee, const char* month, const std::vector<Pay>& pays) {
    const std::int32_t document = company_.given_document(employee, month);
    for (const Pay& pay : pays) {
      const std::string guid = "t" + std::to_string(++rows_);
      company_.database().execute(
          "INSERT INTO salary_rows (id, guid, document_id, time_row_guid, sum_type, sum_a) VALUES (:p0, 's', :p1, :p2,"
          " :p3, :p4)",
          {rows_, document, pay.time_code == 0 ? Variant(kNull) : Variant(guid), pay.type, pay.sum});
      if (pay.time_code == 0) continue;
      company_.database().execute(
          "INSERT INTO time_rows (id, guid, document_id, salary_extra_oid, time_code_id, hours)"
          " VALUES (:p0, :p1, :p2, '', :p3, 1)",
          {rows_, guid, document, pay.time_code});
    }
  }

  TestCompany company_{GetParam()};
  std::int32_t rows_ = 0;
};
ON_EVERY_DATABASE(PreviewRequests);

TEST_P(PreviewRequests, EveryPositionInForceIsListedPersonByPersonInTheAlphabet) {
  company_.given_tariffs();
  const auto own = company_.given_constant("KT", {{"2008.01.31", 200.0}});
  const auto category = company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2008.01.31", 10.1}});
  const auto without = company_.given_category("B lygis", {{"2008.02.01", 5.0}});
  const auto top = company_.given_department("Taryba");
  const auto below = company_.given_department("Skyrius", company_.given_department("Tarnyba", top));
  const auto beside = company_.given_department("Kita");
  const auto zita = company_.given_employee("Žukas Zita", beside);
  const auto jonas = company_.given_employee("Čepas Jonas", below);
  const auto ona = company_.given_employee("Cibas Ona", top);
  const auto rima = company_.given_employee("Civas Rima", top);
  company_.given_position({.employee = zita, .category = without});
  company_.given_position({.employee = jonas, .category = category, .share = 0.5, .from = "2007.01.01"});
  company_.given_position({.employee = jonas, .category = category, .constant_type = own, .share = 0.25});
  // Ended within the month: paid by what was in force that day.
  company_.given_position({.employee = jonas, .category = category, .from = "2007.06.01", .to = day("2008.01.30")});
  company_.given_position({.employee = jonas, .constant_type = own, .to = day("2008.01.01")});  // no tariff yet
  company_.given_position({.employee = jonas, .category = category, .to = day("2007.12.31")});  // ended before
  company_.given_position({.employee = ona, .constant_type = 0, .from = "2008.01.31", .to = day("2008.01.31")});
  company_.given_position({.employee = rima, .category = category, .from = "2008.02.01"});  // not begun

  const std::string cibas = "3;Cibas Ona;Null;Null;130;Null";
  const std::string cepas =
      "2;Čepas Jonas;A lygis;10,1;200;505 | 2;Čepas Jonas;Null;Null;Null;Null | 2;Čepas Jonas;A lygis;10,1;130;657,5 | "
      "2;Čepas Jonas;A lygis;9,7;130;1260";
  const std::string zukas = "1;Žukas Zita;B lygis;Null;130;Null";
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.01.31',0"), cibas + " | " + cepas + " | " + zukas);
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.01.15',0"), cibas + " | " + cepas + " | " + zukas);
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.01.31'," + std::to_string(top)), cibas + " | " + cepas);
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.01.31'," + std::to_string(below)), cepas);
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2008.01.31',99"), "[1: Nėra padalinio, kurio ID yra 99.]");
  EXPECT_EQ(company_.get("OfficeEmployeePreview", "'2004.12.31',0"), "") << "nobody, no settings, no tariff";
}

TEST_P(PreviewRequests, SumsOfTheMonthComeAPersonAndTypeWithTheListedCodesAlone) {
  const auto department = company_.given_department("Taryba");
  const auto first = company_.given_employee("Pirma", department);
  const auto second = company_.given_employee("Antras");
  const auto third = company_.given_employee("Be algos", department);
  given_document(first, "2008.01.01",
                 {{0, 600, 1}, {0, 400, 1}, {1, 500}, {1, 50}, {2, 0.1, 12}, {2, 0.2, 15}, {2, 7, 5}});
  given_document(first, "2008.02.01", {{0, 999, 1}});
  given_document(second, "2008.01.01", {{0, 800, 1}, {2, 7, 5}});
  given_document(third, "2008.01.01", {{1, 10}});

  const std::string of_first = "1;1000;0;1000;100 | 1;1000;1;550;55", of_third = " | 3;0;1;10;0";
  const std::string listed = of_first + " | 1;1000;2;0,3;0,03", of_second = " | 2;800;0;800;100";
  EXPECT_EQ(company_.get("OfficeEmployeeSurcharge", "'2008.01.31',0,',12,15,'"), listed + of_second + of_third);
  EXPECT_EQ(company_.get("OfficeEmployeeSurcharge", "'2008.01.31',1,',12,15,'"), listed + of_third);
  EXPECT_EQ(company_.get("OfficeEmployeeSurcharge", "'2008.01.31',1,''"), of_first + of_third);
  EXPECT_EQ(company_.get("OfficeEmployeeSurcharge", "'2007.12.31',0,''"), "");
  // Exactly 55: the other order of multiplying and dividing is a hair above, and over a limit of 55.
  EXPECT_EQ(company_.rows("OfficeEmployeeSurcharge", "'2008.01.31',1,''")->number({4}), 100.0);
  const auto rows = company_.rows("OfficeEmployeeSurcharge", "'2008.01.31',1,''");
  rows->MoveNext();
  EXPECT_EQ(rows->number({4}), 55.0);
}

TEST_P(PreviewRequests, CategoriesComeInTheAlphabetEachWithItsFactorsByDate) {
  company_.given_category("Šokas", {{"2007.01.01", 2.0}, {"2005.01.01", 1.0}});
  company_.given_category("Tarnautojas", {{"2005.01.01", 3.0}});
  company_.given_category("Skyrius", {{"2005.01.01", 4.0}});
  company_.given_category("Be koeficiento", {});
  EXPECT_EQ(company_.get("CategoryPreview", "None"), "3;Skyrius;4 | 1;Šokas;1 | 1;Šokas;2 | 2;Tarnautojas;3");
  EXPECT_NE(company_.get("CategoryPreview", "'2008.01.31'").find("None"), std::string::npos);
}

TEST_P(PreviewRequests, AskTheSameStatementsForAnyNumberOfPeopleAndAgreeWithTheMonth) {
  make_sample_company(company_.database(), {.employees = 60, .progress = {}});
  company_.application().load_plugin(VELMORA_PLUGIN);
  const CalculatedMonth run = calculate_month(company_.application(), Month::parse("2008-01"), {});
  ASSERT_EQ(run.faults.size(), 0U);

  company_.company().refresh();
  auto statements = company_.database().statements();
  const auto preview = company_.rows("OfficeEmployeePreview", "'2008.01.31',0");
  EXPECT_EQ(company_.database().statements() - statements, 7U) << "one asks whether the company has users";
  ASSERT_EQ(preview->RecordCount(), run.rows->RecordCount());
  for (std::string person; !preview->Eof(); preview->MoveNext(), run.rows->MoveNext()) {
    const std::string name = null_to_text(run.rows->field("Person"));
    if (!name.empty()) person = name;
    EXPECT_EQ(preview->text(preview->handle("Preview")), person);
    for (const auto& [of_preview, of_month] : {std::pair{"CategoryName", "Category"},
                                               {"Factor", "Factor"},
                                               {"ConstantValue", "BaseTariff"},
                                               {"RoundedSalary", "MonthSalary"}}) {
      EXPECT_EQ(value_text(preview->field(of_preview)), value_text(run.rows->field(of_month))) << person << of_month;
    }
  }

  const auto settings = company_.rows("OfficeEmployeeSettings", "'2008.01.31'");
  statements = company_.database().statements();
  const auto sums = company_.rows("OfficeEmployeeSurcharge",
                                  "'2008.01.31',0,'" + settings->field("PersonalTimeCodeIDList").to_text() + "'");
  EXPECT_EQ(company_.database().statements() - statements, 1U);
  double total[3] = {}, of_month[3] = {};
  for (; !sums->Eof(); sums->MoveNext()) total[sums->int32({2})] += sums->number({3});
  for (run.rows->MoveFirst(); !run.rows->Eof(); run.rows->MoveNext()) {
    int type = 0;
    for (const char* field : {"BasePay", "Supplements", "Surcharges"}) {
      of_month[type++] += null_to_double(run.rows->field(field));
    }
  }
  for (int type = 0; type < 3; ++type) EXPECT_NEAR(total[type], of_month[type], 0.001);
  EXPECT_GT(total[1], 0);
}

TEST(PositionSalary, IsTheEnginesMonthSalary) {
  // A product for each last digit, its half and both sides of it, by a share that leaves halves of cents.
  for (int whole = 1260; whole <= 1275; ++whole) {
    for (const double part : {0.0, 0.49998, 0.49999, 0.5, 0.75}) {
      for (const double share : {1.0, 0.333, 0.0625}) {
        EXPECT_EQ(position_salary(whole + part, 1, share), velmora::month_salary(whole + part, 1, share))
            << whole + part << " " << share;
      }
    }
  }
  const struct {
    double tariff, factor, share, expected;
  } cases[] = {{130, 9.7, 1, 1260}, {125, 10.1, 1, 1265}, {130, 9.7, 0.5, 630}, {1, 1267.5, 1, 1270}};
  for (const auto& c : cases) EXPECT_EQ(position_salary(c.tariff, c.factor, c.share), c.expected) << c.factor;
}

}  // namespace
}  // namespace quor
