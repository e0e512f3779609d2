#include <gtest/gtest.h>
#include <regex>

#include "host/business/standard_object_uio.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class StandardObjectTest : public testing::Test {
 protected:
  // A data object of a user of the same company.
  StandardObjectUIO object_of(const char* user) { return {company_.company(), nullptr, user}; }
  static std::string read(StandardObjectUIO& object, const char* key) {
    object.OIDR(key);
    return object.Read().ErrorText;
  }
  std::string stored(const char* column) {
    return walked(*company_.database().read(std::string("SELECT ") + column + " FROM positions ORDER BY id",
                                            {{"value", FieldType::kText}}),
                  "value");
  }

  TestCompany company_;
  std::int32_t person_ = company_.given_employee("Pirmoji");
};

TEST_F(StandardObjectTest, ReadsEditsAndSavesItsRecord) {
  company_.given_position({.employee = person_, .share = 0.5, .to = parse_date("2008.12.31"), .contract = "K"});
  auto object = object_of("Ona");
  EXPECT_EQ(object.RsFields(), nullptr);
  EXPECT_EQ(outcome([&] { return value_text(object.Fields()["Share"].Value()); }), "ObjectMissing");
  ASSERT_EQ(read(object, "O04020001"), "");
  EXPECT_EQ(rows_text(*object.RsFields()), "1;1;K;N1;Null;Null;0,5;2005.01.01;2008.12.31");

  object.RsFields()->MoveFirst();
  object.Fields()["Share"].Value(0.75);
  object.Fields()["DateTo"].Value(kNull);
  EXPECT_FALSE(object.Save(0, "").Failed);
  object.Fields()["Share"].Value(1);
  EXPECT_FALSE(object.Save(0, "").Failed) << "a second save goes on from the first";
  EXPECT_EQ(stored("share || '/' || COALESCE(date_to, 'none') || '/' || row_version || changed_by"), "1.0/none/3Ona");
}

TEST_F(StandardObjectTest, ANewRecordIsEmptyAndGetsItsKeyWhenItIsSaved) {
  auto object = object_of("Ona");
  ASSERT_EQ(read(object, "O0402000"), "");
  EXPECT_EQ(rows_text(*object.RsFields()), "Null;Null;Null;Null;Null;Null;Null;Null");
  object.RsFields()->MoveFirst();
  object.Fields()["ParentID"].Value(person_);
  object.Fields()["PersonalContractGUID"].Value("K");
  object.CancelUpdate();
  EXPECT_TRUE(object.Fields()["ParentID"].Value().is_null()) << "nothing is stored to go back to";

  object.Fields()["ParentID"].Value(person_);
  object.Fields()["PersonalContractGUID"].Value("K");
  object.Fields()["SalaryPersonalNormGUID"].Value("N");
  object.Fields()["DateFrom"].Value(parse_date("2008.01.01"));
  const SaveStatus refused = object.Save(0, "");
  EXPECT_TRUE(refused.Failed) << "a post without a share";
  EXPECT_EQ(object.OIDR() + "/" + stored("id"), "O0402000/");
  object.Fields()["Share"].Value(1.0);
  EXPECT_EQ(object.Save(0, "").ErrorText, "");
  EXPECT_EQ(object.OIDR(), "O04020001") << "the refused save took no number";
  auto again = object_of("Jonas");
  ASSERT_EQ(read(again, "O04020001"), "");
  EXPECT_EQ(rows_text(*again.RsFields()), "1;1;K;N;Null;Null;1;2008.01.01;Null");
}

TEST_F(StandardObjectTest, WhoeverSavesSecondIsToldByWhomAndOverwritesNothing) {
  company_.given_position({.employee = person_});
  auto first = object_of("Ona Pirmoji");
  auto second = object_of("Jonas");
  ASSERT_EQ(read(first, "O04020001") + read(second, "O04020001"), "");
  first.Fields()["Share"].Value(0.5);
  second.Fields()["Share"].Value(0.25);
  EXPECT_FALSE(first.Save(0, "").Failed);
  const SaveStatus refused = second.Save(0, "");
  EXPECT_TRUE(refused.Failed);
  EXPECT_TRUE(std::regex_match(refused.ErrorText, std::regex("Įrašą tuo metu pakeitė kitas vartotojas: Ona Pirmoji, "
                                                             "\\d{4}\\.\\d\\d\\.\\d\\d \\d\\d:\\d\\d\\.")))
      << refused.ErrorText;
  EXPECT_EQ(stored("share || changed_by"), "0.5Ona Pirmoji");

  ASSERT_EQ(second.Read().ErrorText, "");
  second.Fields()["Share"].Value(0.25);
  EXPECT_FALSE(second.Save(0, "").Failed) << "after reading what the other wrote";
  company_.database().execute("DELETE FROM positions");
  first.Fields()["Share"].Value(1.0);
  EXPECT_EQ(first.Save(0, "").ErrorText, "Įrašas panaikintas kito vartotojo.");
  EXPECT_EQ(stored("id"), "");
}

TEST_F(StandardObjectTest, KeysWithoutARecordAreRefusedByName) {
  company_.given_position({.employee = person_});
  const std::pair<const char*, const char*> cases[] = {{"O04020002", "Įrašo „O04020002“ nėra."},
                                                       {"O0402000x", "Įrašo „O0402000x“ nėra."},
                                                       {"O04020001x", "Įrašo „O04020001x“ nėra."},
                                                       {"O040200099999999999", "Įrašo „O040200099999999999“ nėra."},
                                                       {"O99990001", "Nežinomas objekto tipas: „O99990001“."},
                                                       {"", "Nežinomas objekto tipas: „“."}};
  for (const auto& [key, text] : cases) {
    auto object = object_of("Ona");
    EXPECT_EQ(read(object, key), text);
    EXPECT_EQ(object.Save(0, "").ErrorText, "Nėra ką įrašyti: įrašas neperskaitytas.");
  }
}

TEST_F(StandardObjectTest, CancelGoesBackToWhatWasReadOrSaved) {
  company_.given_position({.employee = person_, .share = 0.5});
  auto object = object_of("Ona");
  ASSERT_EQ(read(object, "O04020001"), "");
  object.Fields()["Share"].Value(0.75);
  object.RsFields()->Update();
  object.Fields()["Share"].Value(0.9);
  object.CancelUpdate();
  EXPECT_EQ(value_text(object.Fields()["Share"].Value()), "0,5");
  object.Fields()["Share"].Value(0.75);
  ASSERT_FALSE(object.Save(0, "").Failed);
  object.CancelUpdate();
  EXPECT_EQ(value_text(object.Fields()["Share"].Value()), "0,75");
}

TEST_F(StandardObjectTest, ASaveThatFailsAtAnyStatementLeavesNothingHalfSavedAndCanBeRepeated) {
  const auto saved_at_last = [&](const char* key, const char* expected) {
    for (std::uint64_t n = 1;; ++n) {
      ASSERT_LT(n, 20U);
      auto object = object_of("Ona");
      ASSERT_EQ(read(object, key), "");
      object.Fields()["ParentID"].Value(person_);
      object.Fields()["PersonalContractGUID"].Value("K");
      object.Fields()["SalaryPersonalNormGUID"].Value("N");
      object.Fields()["Share"].Value(0.25);
      object.Fields()["DateFrom"].Value(parse_date("2008.01.01"));
      const std::string before = stored("id || '/' || share || '/' || row_version");
      // One statement only: the roll-back itself goes through.
      const auto failing = company_.database().statements() + n;
      company_.database().set_fault([failing](std::uint64_t statement) {
        if (statement == failing) throw StoreError(StoreFault::kFailed, "ryšys nutrūko");
      });
      const SaveStatus status = object.Save(0, "");
      company_.heal();
      if (!status.Failed) {
        EXPECT_GT(n, 3U) << "begin, write, count, commit";
        EXPECT_EQ(stored("id || '/' || share || '/' || row_version"), expected);
        return;
      }
      EXPECT_EQ(status.ErrorText, "ryšys nutrūko");
      EXPECT_EQ(stored("id || '/' || share || '/' || row_version"), before) << n;
      EXPECT_EQ(object.OIDR(), key);
    }
  };
  saved_at_last("O0402000", "1/0.25/1");
  company_.database().execute("UPDATE positions SET share = 1");
  saved_at_last("O04020001", "1/0.25/2");
}

TEST_F(StandardObjectTest, GuidsAreFreshAndInUpperCase) {
  auto object = object_of("Ona");
  const std::string one = object.GetGUID();
  EXPECT_NE(one, object.GetGUID());
  EXPECT_TRUE(std::regex_match(one, std::regex("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"))) << one;
}

}  // namespace
}  // namespace quor
