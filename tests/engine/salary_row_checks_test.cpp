#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "frame/contract/over_limit.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::day;
using quor::FieldType;
using quor::kNull;
using quor::record_set;
using quor::Variant;
using RecordsetRef = std::shared_ptr<quor::Recordset>;

TEST(ChargeLimits, ExactlyAtTheLimitIsWithinIt) {
  const struct {
    double part, base, limit;
    bool exceeds;
  } cases[] = {{55.000000009, 100, 55, false},  // whole cents: docs/rules/limits.csv
               {55.000000011, 100, 55, true},
               {0, 1000, 0, false},
               {-10, -100, 5, true},
               {10, -100, 5, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(quor::share_exceeds(c.part, c.base, c.limit), c.exceeds)
        << c.part << " of " << c.base << ", limit " << c.limit;
  }
  for (const double none : {0.0, 0.10 + 0.20 - 0.30, 0.00499, -0.00499}) EXPECT_TRUE(quor::is_no_base(none)) << none;
  for (const double base : {0.005, -0.005}) EXPECT_FALSE(quor::is_no_base(base)) << base;
}

class SalaryRowChecksTest : public testing::Test {
 protected:
  SalaryRowChecksTest() { engine_.OID("D1"); }

  void given_limits(const Variant& supplement, const Variant& surcharge, const Variant& total, const Variant& codes) {
    company_.application().answers["GetOfficeEmployeeSettings"] = {
        0, "",
        record_set({{"ExtraChargePercentage", FieldType::kDouble},
                    {"SurChargePercentage", FieldType::kDouble},
                    {"TotalChargePercentage", FieldType::kDouble},
                    {"PersonalTimeCodeIDList", FieldType::kText}},
                   {{supplement, surcharge, total, codes}})};
  }
  using Rows = std::vector<std::vector<Variant>>;
  static RecordsetRef time_rows(const Rows& rows) {
    return record_set(
        {{"SalaryExtraOID", FieldType::kText}, {"SalaryTimeCodeID", FieldType::kInt32}, {"GUID", FieldType::kText}},
        rows);
  }
  static RecordsetRef salary_rows(const Rows& rows) {
    return record_set(
        {{"TimeRowGUID", FieldType::kText}, {"SumA", FieldType::kDouble}, {"PersonalExtraChargeID", FieldType::kInt32}},
        rows);
  }
  std::string check(const RecordsetRef& times, const RecordsetRef& sums, std::int32_t fd_code = 1) {
    const auto result = engine_.Methods("CheckSalaryRows", {times, sums, day("2008.01.31"), fd_code});
    EXPECT_EQ(result.Value.to_bool(), result.Code != 16) << result.Message;
    return std::to_string(result.Code) + " " + result.Message;
  }

  quor::TestCompany company_;
  UIO0402000 engine_{company_.application()};
};

TEST_F(SalaryRowChecksTest, TheBaseIsTheFirstPayOfEachBasicTimeRowOfTheDocument) {
  given_limits(50.0, 0.0, 0.0, "");
  struct Case {
    const char* name;
    Rows times, sums;
    const char* answer;
  };
  const char* const over = "4 CheckSalaryRows: Priedų suma viršija 50%!";
  const Case cases[] = {
      {"two basic rows", {{"D1", 1, "a"}, {"D1", 1, "b"}}, {{"a", 600.0, 0}, {"b", 400.0, 0}, {"x", 500.0, 1}}, "0 "},
      {"the second row of one time row", {{"D1", 1, "a"}}, {{"a", 600.0, 0}, {"a", 400.0, 0}, {"x", 500.0, 1}}, over},
      {"another document's",
       {{"D1", 1, "a"}, {"D2", 1, "b"}},
       {{"a", 600.0, 0}, {"b", 400.0, 0}, {"x", 500.0, 1}},
       over},
      {"another code", {{"D1", 1, "a"}, {"D1", 2, "b"}}, {{"a", 600.0, 0}, {"b", 400.0, 0}, {"x", 500.0, 1}}, over},
      {"no pay", {{"D1", 1, "a"}}, {{"b", 600.0, 0}, {"x", 500.0, 1}}, "0 "},
      {"no rows", {}, {}, "0 "},
      {"supplements of all rows add up", {{"D1", 1, "a"}}, {{"a", 1000.0, 0}, {"x", 300.0, 1}, {"y", 300.0, 2}}, over},
      {"a pay that is a supplement too", {{"D1", 1, "a"}}, {{"a", 1000.0, 7}}, over},
      {"nulls are nothing", {{"D1", 1, "a"}}, {{"a", 1000.0, kNull}, {"x", kNull, 1}, {kNull, 900.0, kNull}}, "0 "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(check(time_rows(c.times), salary_rows(c.sums)), c.answer);
  }
}

TEST_F(SalaryRowChecksTest, SurchargesCountForListedCodesOfAnyDocument) {
  given_limits(0.0, 50.0, 0.0, "12,3");
  const struct {
    Variant code;
    const char* document;
    bool over;
  } cases[] = {{12, "D1", true}, {3, "D1", true},      {12, "D2", true},  {2, "D1", false},
               {1, "D1", false}, {kNull, "D1", false}, {123, "D1", false}};
  for (const auto& c : cases) {
    const auto times = time_rows({{"D1", 1, "a"}, {c.document, c.code, "b"}});
    EXPECT_EQ(check(times, salary_rows({{"a", 1000.0, 0}, {"b", 501.0, 0}, {"b", 1.0, 0}})),
              c.over ? "4 CheckSalaryRows: Priemokų suma viršija 50%!" : "0 ")
        << quor::value_text(c.code);
  }
}

TEST_F(SalaryRowChecksTest, UnusableParametersAndSettings) {
  given_limits(55.0, 60.0, 70.0, "5");
  const auto times = time_rows({{"D1", 1, "a"}});
  const auto sums = salary_rows({{"a", 1000.0, 0}, {"x", 900.0, 1}});
  const RecordsetRef missing;
  EXPECT_EQ(check(times, sums, 0), "16 CheckSalaryRows: Nenustatytas FD kodas!");
  EXPECT_EQ(check(missing, sums, 0), "16 CheckSalaryRows: Nenustatytas FD kodas!");
  EXPECT_EQ(check(missing, sums), "16 CheckSalaryRows: Klaidingi parametrai!");
  EXPECT_EQ(check(times, missing), "16 CheckSalaryRows: Klaidingi parametrai!");
  EXPECT_TRUE(company_.application().boxes().empty());

  company_.application().answers.clear();
  EXPECT_EQ(check(times, sums), "0 ");  // no settings in force
  company_.application().refuse("GetOfficeEmployeeSettings", "nėra ryšio");
  EXPECT_EQ(check(times, sums), "16 GetOfficeEmployeeSettings: ");
  EXPECT_EQ(company_.application().boxes(), (std::vector<std::string>{"exclamation, ok, Testas: nėra ryšio"}));
}

TEST_F(SalaryRowChecksTest, AFilterThatWasThereIsReplacedAndNoneIsLeft) {
  given_limits(55.0, 60.0, 70.0, "5");
  for (const bool over : {true, false}) {
    const auto times = time_rows({{"D1", 1, "a'b"}, {"D1", 5, "c"}});
    const auto sums = salary_rows({{"a'b", 1000.0, 0}, {"x", over ? 900.0 : 1.0, 1}});
    times->Filter("GUID = 'nothing'");
    sums->Filter("SumA < 0");
    EXPECT_EQ(check(times, sums), over ? "4 CheckSalaryRows: Priedų suma viršija 55%!" : "0 ");
    EXPECT_EQ(times->Filter() + sums->Filter(), "");
    EXPECT_EQ(times->RecordCount() + sums->RecordCount(), 4);
  }
}

}  // namespace
}  // namespace velmora
