#include <gtest/gtest.h>
#include <regex>

#include "host/business/object_codes.h"
#include "host/business/standard_object_uio.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class StandardObjectTest : public testing::TestWithParam<Backend> {
 protected:
  // A data object of a user of the same company.
  StandardObjectUIO object_of(const char* user, const char* type = kSalaryExtensionType) {
    return {company_.application(), company_.company(), user, type};
  }
  static std::string read(StandardObjectUIO& object, const char* key) {
    object.OIDR(key);
    return object.Read().ErrorText;
  }
  // Share, end, version and writer of every position, "1;Null;3;Ona | …".
  std::string stored() {
    return rows_text(*company_.database().read(
        "SELECT share, date_to, row_version, changed_by FROM positions ORDER BY id",
        {{"s", FieldType::kDouble}, {"d", FieldType::kDate}, {"v", FieldType::kInt32}, {"u", FieldType::kText}}));
  }

  TestCompany company_{GetParam()};
  std::int32_t person_ = company_.given_employee("Pirmoji");
};
ON_EVERY_DATABASE(StandardObjectTest);

TEST_P(StandardObjectTest, ReadsEditsAndSavesItsRecord) {
  company_.given_position({.employee = person_, .share = 0.5, .to = parse_date("2008.12.31"), .contract = "K"});
  auto object = object_of("Ona");
  EXPECT_EQ(object.RsFields(), nullptr);
  EXPECT_EQ(outcome([&] { return value_text(object.Fields()["Share"].Value()); }), "ObjectMissing");
  ASSERT_EQ(read(object, "O04020001"), "");
  EXPECT_EQ(rows_text(*object.RsFields()), "1;K;N1;Null;Null;0,5;2005.01.01;2008.12.31");

  object.RsFields()->MoveFirst();
  object.Fields()["Share"].Value(0.75);
  object.Fields()["DateTo"].Value(kNull);
  EXPECT_FALSE(object.Save(0, "").Failed);
  object.Fields()["Share"].Value(1);
  EXPECT_FALSE(object.Save(0, "").Failed) << "a second save goes on from the first";
  EXPECT_EQ(stored(), "1;Null;3;Ona");
}

TEST_P(StandardObjectTest, ANewRecordIsEmptyAndGetsItsKeyWhenItIsSaved) {
  auto object = object_of("Ona");
  EXPECT_EQ(object.OType(), "O0402000");
  for (const char* key : {"", "O040", "O0402000"}) {
    ASSERT_EQ(read(object, key), "");
    EXPECT_EQ(rows_text(*object.RsFields()), "Null;Null;Null;Null;Null;Null;Null;Null");
  }
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
  EXPECT_EQ(refused.ErrorText, "Neužpildytas laukas „Share“.");
  EXPECT_EQ(object.OIDR() + "/" + stored(), "O0402000/");
  object.Fields()["Share"].Value(1.0);
  EXPECT_EQ(object.Save(0, "").ErrorText, "");
  EXPECT_EQ(object.OIDR(), "O04020001") << "the refused save took no number";
  auto again = object_of("Jonas");
  ASSERT_EQ(read(again, "O04020001"), "");
  EXPECT_EQ(rows_text(*again.RsFields()), "1;K;N;Null;Null;1;2008.01.01;Null");
}

TEST_P(StandardObjectTest, WhoeverSavesSecondIsToldByWhomAndOverwritesNothing) {
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
  EXPECT_EQ(stored(), "0,5;Null;2;Ona Pirmoji");

  ASSERT_EQ(second.Read().ErrorText, "");
  second.Fields()["Share"].Value(0.25);
  EXPECT_FALSE(second.Save(0, "").Failed) << "after reading what the other wrote";
  company_.database().execute("DELETE FROM positions");
  first.Fields()["Share"].Value(1.0);
  EXPECT_EQ(first.Save(0, "").ErrorText, "Įrašas panaikintas kito vartotojo.");
  EXPECT_EQ(stored(), "");
}

TEST_P(StandardObjectTest, KeysWithoutARecordAreRefusedByName) {
  company_.given_position({.employee = person_});
  const std::pair<const char*, const char*> cases[] = {
      {"O04020002", "Įrašo „O04020002“ nėra."},
      {"O0402000x", "Įrašo „O0402000x“ nėra."},
      {"O04020001x", "Įrašo „O04020001x“ nėra."},
      {"O040200099999999999", "Įrašo „O040200099999999999“ nėra."},
      {"O04022001", "Įrašas „O04022001“ kito tipo: laukiama „O0402000“."}};
  for (const auto& [key, text] : cases) {
    auto object = object_of("Ona");
    EXPECT_EQ(read(object, key), text);
    EXPECT_EQ(object.Save(0, "").ErrorText, "Nėra ką įrašyti: įrašas neperskaitytas.");
    // Nor does the record that was read before go where the key points now.
    ASSERT_EQ(read(object, "O04020001"), "");
    EXPECT_EQ(read(object, key), text);
    EXPECT_EQ(object.Save(0, "").ErrorText, "Nėra ką įrašyti: įrašas neperskaitytas.");
  }
  auto unknown = object_of("Ona", "O0402100");
  EXPECT_EQ(read(unknown, "O04021001"), "Nežinomas objekto tipas: „O0402100“.");
}

TEST_P(StandardObjectTest, CancelGoesBackToWhatWasReadOrSaved) {
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

TEST_P(StandardObjectTest, ASaveThatFailsAtAnyStatementLeavesNothingHalfSavedAndCanBeRepeated) {
  const auto saved_at_last = [&](const char* key, const char* expected) {
    auto object = object_of("Ona");
    ASSERT_EQ(read(object, key), "");
    object.Fields()["ParentID"].Value(person_);
    object.Fields()["PersonalContractGUID"].Value("K");
    object.Fields()["SalaryPersonalNormGUID"].Value("N");
    object.Fields()["Share"].Value(0.25);
    object.Fields()["DateFrom"].Value(parse_date("2008.01.01"));
    for (std::uint64_t n = 1;; ++n) {
      ASSERT_LT(n, 20U);
      const std::string before = stored();
      // One statement only: the roll-back itself goes through.
      const auto failing = company_.database().statements() + n;
      company_.database().set_fault([failing](std::uint64_t statement) {
        if (statement == failing) throw StoreError(StoreFault::kFailed, "ryšys nutrūko");
      });
      const SaveStatus status = object.Save(0, "");
      company_.heal();
      if (!status.Failed) {
        EXPECT_GT(n, 3U) << "begin, write, count, commit";
        EXPECT_EQ(stored(), expected);
        return;
      }
      EXPECT_EQ(status.ErrorText, "ryšys nutrūko");
      EXPECT_EQ(stored(), before) << n;
      EXPECT_EQ(object.OIDR(), key);
    }
  };
  saved_at_last("O0402000", "0,25;Null;1;Ona");
  company_.database().execute("UPDATE positions SET share = 1");
  saved_at_last("O04020001", "0,25;Null;2;Ona");
}

TEST_P(StandardObjectTest, GuidsAreFreshAndInUpperCase) {
  auto object = object_of("Ona");
  const std::string one = object.GetGUID();
  EXPECT_NE(one, object.GetGUID());
  EXPECT_TRUE(std::regex_match(one, std::regex("[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}"))) << one;
}

TEST_P(StandardObjectTest, ARecordIsStoredWithItsRowsWholeOrNotAtAll) {
  company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2006.01.01", 10.1}, {"2007.01.01", 10.5}});
  auto object = object_of("Ona", kCategoryType);
  ASSERT_EQ(read(object, "O04022001"), "");
  const auto rows = object.Fields()["Rows"].Value().record_set();
  EXPECT_EQ(object.Fields()["Rows"].Value().record_set(), rows) << "the same set each time";
  const auto factors = [&] { return walked(*object.Fields()["Rows"].Value().record_set(), "Factor"); };
  const auto edit = [&] {
    rows->MoveFirst();
    rows->set_field("Factor", 9.9);
    rows->MoveNext();
    rows->Delete();
    rows->AddNew();
    rows->set_field("GUID", "G4");
    rows->set_field("DateFrom", parse_date("2008.01.01"));
    rows->set_field("Factor", 11.0);
    object.Fields()["Name"].Value("A lygio");
  };
  const auto stored_factors = [&] {
    auto other = object_of("Jonas", kCategoryType);
    EXPECT_EQ(read(other, "O04022001"), "");
    return null_to_text(other.Fields()["Name"].Value()) + ": " +
           walked(*other.Fields()["Rows"].Value().record_set(), "Factor");
  };
  edit();
  object.CancelUpdate();
  EXPECT_EQ(factors(), "9,7 10,1 10,5");

  edit();
  std::uint64_t statement = 1;
  for (;; ++statement) {
    const auto failing = company_.database().statements() + statement;
    company_.database().set_fault([failing](std::uint64_t number) {
      if (number == failing) throw StoreError(StoreFault::kFailed, "ryšys nutrūko");
    });
    const SaveStatus status = object.Save(0, "");
    company_.heal();
    if (!status.Failed) break;
    ASSERT_EQ(status.ErrorText, "ryšys nutrūko");
    ASSERT_EQ(stored_factors(), "A lygis: 9,7 10,1 10,5") << "statement " << statement;
  }
  EXPECT_GT(statement, 7U);  // begin, record, ID, three rows, change count, commit
  // Nothing of what was typed is lost.
  EXPECT_EQ(stored_factors(), "A lygio: 9,9 10,5 11");

  const char* const today = "1,'2008.01.31'";
  EXPECT_EQ(company_.rows("OfficeEmployeeCategory", today)->field("Factor").to_double(), 11.0);
  rows->MoveLast();
  rows->set_field("Factor", 12.0);
  EXPECT_EQ(object.Save(0, "").ErrorText, "") << "the new row has its own number now";
  EXPECT_EQ(company_.rows("OfficeEmployeeCategory", today)->field("Factor").to_double(), 12.0) << "seen at once";
  EXPECT_EQ(stored_factors(), "A lygio: 9,9 10,5 12");
}

}  // namespace
}  // namespace quor
