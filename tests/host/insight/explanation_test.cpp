// What is told of a person's month, and that it is what was calculated and what is stored.
#include "host/insight/explanation.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "host/insight/told_pay.h"
#include "host/payroll/calculated_month.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/month_calculation.h"
#include "host/store/object_codes.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class ExplanationTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.database().execute(
        "UPDATE settings SET personal_time_code_id_list = '2', extra_charge_percentage = 10,"
        " surcharge_percentage = 20, total_charge_percentage = 30");
    company_.given_time_codes();
    category_ = company_.given_category("A lygio 13 kategorija", {{"2005.01.01", 8.0}, {"2007.07.01", 9.7}});
    ada_ = company_.given_employee("Ada");
    company_.given_position({.employee = ada_, .category = category_});
    company_.given_service(ada_, day("2005.01.31"), 3, 11);
  }

  Explanation explained(const char* month = "2008-01") {
    return explain(company_.application(), Month::parse(month), ada_);
  }
  static std::string told(const Explanation& explanation) {
    std::string text;
    for (const ExplainedAmount& amount : explanation.amounts) text += sentence_of(amount) + "\n";
    for (const std::string& refused : explanation.refused) text += "REFUSED " + refused + "\n";
    return text + explanation.fault;
  }
  // Every stored row under the amounts, its table and ID.
  static void collect(const ExplainedAmount& amount, std::set<std::pair<std::string, std::int32_t>>& rows) {
    if (amount.source) rows.emplace(amount.source->table, amount.source->id);
    for (const ExplainedAmount& input : amount.inputs) collect(input, rows);
  }

  TestCompany company_{GetParam()};
  std::int32_t category_ = 0, ada_ = 0;
};
ON_EVERY_DATABASE(ExplanationTest);

TEST_P(ExplanationTest, TellsWhatAClerkWouldReckon) {
  company_.given_charge(ada_, kNull, kNull, 100.0);
  company_.database().execute(
      "INSERT INTO extra_charges (id, guid, employee_id, salary_extra_oid, percentage, row_version, changed_by, "
      "changed_at) VALUES (70, 'G', :p0, 'O0402000', 0, 1, 'Jonas', '2008.01.05 10:00')",
      {ada_});
  company_.given_time(ada_, 1, 84);
  company_.given_time(ada_, 2, 5, day("2008.01.10"));
  company_.given_time(ada_, 2, 5, day("2008.01.11"));
  EXPECT_EQ(told(explained()), "");
}

}  // namespace
}  // namespace quor
