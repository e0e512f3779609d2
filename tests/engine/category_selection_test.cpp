#include <gtest/gtest.h>

#include "engine/salary_engine.h"
#include "frame/contract/named_members.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::day;
using quor::kNull;
using quor::Variant;

class CategorySelectionTest : public testing::Test {
 protected:
  CategorySelectionTest() {
    application_.load_plugin(VELMORA_PLUGIN);
    company_.given_category("Pirma", {{"2005.01.01", 9.7}, {"2007.07.01", 10.1}, {"2008.02.01", 11.0}});
    company_.given_category("Antra", {{"2008.02.01", 5.0}});
    company_.given_category("Trečia", {});
  }
  std::string select(const std::string& pick, const char* date = "2008.01.31", std::int32_t current = 0) {
    application_.picked.Identity = pick;
    const auto result =
        engine_.Methods("HandleSelectEvent", {day(date), std::int32_t{7}, 130.5, current, 0.0, "kažkas"});
    EXPECT_EQ(result.Code, 0);
    return result.Value.is_empty() ? "Empty" : quor::rows_text(*result.Value.record_set());
  }

  quor::TestCompany company_;
  quor::PickingApplication application_{company_.company(), {.title = "Testas"}};
  UIO0402000 engine_{application_};
};

TEST_F(CategorySelectionTest, AnswersTheFactorOfTheLastRowUpToTheDate) {
  EXPECT_EQ(select("O04022001#GUID"), "7;130,5;1;10,1;Pirma");
  EXPECT_EQ(application_.asked, "O0402200,,");
  EXPECT_EQ(select("O04022001#GUID", "2008.02.01"), "7;130,5;1;11;Pirma");
  EXPECT_EQ(select("O04022001#GUID", "2005.01.01"), "7;130,5;1;9,7;Pirma");
  EXPECT_EQ(select("O04022001#GUID", "2004.12.31"), "7;130,5;1;1;Pirma");  // none: the factor is 1
  EXPECT_EQ(select("O04022002#"), "7;130,5;2;1;Antra");
  EXPECT_EQ(select("O04022003#a#b"), "7;130,5;3;1;Trečia");
}

TEST_F(CategorySelectionTest, AnUnusableChoiceChangesNothing) {
  for (const char* pick : {"", "O04022001", "#O04022001", "O0402200#1", "O0402200x#G", "O040220099#G", "O99999991#G"}) {
    EXPECT_EQ(select(pick), "Empty") << pick;
  }
  EXPECT_EQ(select("O04022001#G", "2008.01.31", 1), "Empty");  // the category that the row has
  EXPECT_EQ(select("O04022001#G", "2008.01.31", 2), "7;130,5;1;10,1;Pirma");
  EXPECT_TRUE(application_.boxes().empty());
}

TEST_F(CategorySelectionTest, EveryParameterConvertsEvenIfItPlaysNoPart) {
  using quor::Parameters;
  const Parameters good = {day("2008.01.31"), 7, 130.5, 0, 0.0, "x"};
  const char* const kinds[] = {"TypeMismatch", "TypeMismatch", "TypeMismatch",
                               "TypeMismatch", "TypeMismatch", "InvalidNull"};
  for (std::size_t i = 0; i < good.size(); ++i) {
    Parameters bad = good;
    bad[i] = i == 5 ? Variant(kNull) : Variant("blogai");
    EXPECT_EQ(quor::called(engine_, "HandleSelectEvent", bad), kinds[i]) << i;
  }
  EXPECT_EQ(application_.asked, "");
}

struct Chosen : quor::NamedMembers {
  Chosen(Variant c, Variant f) : constant(std::move(c)), factor(std::move(f)) {}
  Variant member(std::string_view name) const override { return name == "mConstantID" ? constant : factor; }
  Variant constant, factor;
};

class FillExtraFieldsTest : public CategorySelectionTest {
 protected:
  FillExtraFieldsTest() {
    company_.given_position(
        {.employee = company_.given_employee("Adomas"), .category = 2, .contract = "K", .norm = "N"});
    engine_.OIDR("O04020001");
    EXPECT_FALSE(engine_.Read().Failed);
  }
  void fill(const Variant& constant, const Variant& category, const char* id, bool contract) {
    const auto result =
        engine_.Methods("FillExtraUIOFields", {std::make_shared<Chosen>(constant, category), id, contract});
    EXPECT_EQ(quor::result_text(result), "Empty");
  }
  std::string record() {
    std::string text;
    for (const char* field :
         {"PersonalContractGUID", "SalaryPersonalNormGUID", "SalaryConstantTypeID", "OfficeEmployeeCategoryID"}) {
      text += null_to_text(engine_.Fields()[field].Value()) + ";";
    }
    return text;
  }
  bool touched() { return engine_.RsFields()->row_state() != quor::RowState::kUnchanged; }
};

TEST_F(FillExtraFieldsTest, WritesOnlyWhatChanges) {
  fill(0, 2, "K", true);  // a null constant type is 0
  engine_.RsFields()->Update();
  EXPECT_FALSE(engine_.RsFields()->has_changes());

  fill(1, 3, "K2", true);
  EXPECT_EQ(record(), "K2;N;1;3;");
  fill(1, 3, "N2", false);
  EXPECT_EQ(record(), "K2;N2;1;3;");
  fill(kNull, kNull, "", false);
  EXPECT_EQ(record(), "K2;;0;0;");
}

TEST_F(FillExtraFieldsTest, WhatDoesNotConvertWritesNothing) {
  EXPECT_EQ(quor::called(engine_, "FillExtraUIOFields", {std::make_shared<Chosen>(1, "x"), "K2", true}),
            "TypeMismatch");
  EXPECT_EQ(quor::called(engine_, "FillExtraUIOFields", {std::make_shared<Chosen>(1, 3), "K2", "gal"}), "TypeMismatch");
  EXPECT_EQ(record(), "K;N;;2;");
}

}  // namespace
}  // namespace velmora
