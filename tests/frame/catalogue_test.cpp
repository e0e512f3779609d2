#include "frame/catalogue.h"

#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace velmora {
namespace {

TEST(Catalogue, TheNumericKeyFilterAcceptsOnlyWhatCanBecomeANumber) {
  const struct {
    char32_t typed;
    const char* text;
    bool negative, decimal;
    char32_t accepted;
  } cases[] = {
      {U'/', "", true, true, 0},    {U'0', "", false, false, U'0'},   {U'9', "12,5", false, false, U'9'},
      {U':', "", true, true, 0},    {7, "", true, true, 0},           {8, "12", false, false, 8},
      {9, "", true, true, 0},       {U'-', "", true, false, U'-'},    {U'-', "12", true, false, U'-'},
      {U'-', "", false, true, 0},   {U',', "12", false, true, U','},  {U',', "12", true, false, 0},
      {U',', "1,2", true, true, 0}, {U'.', "12", false, true, U','},  {U'.', "12", true, false, 0},
      {U'.', "1,2", true, true, 0}, {U'.', "1.2", false, true, U','}, {U'+', "", true, true, 0},
      {U'e', "", true, true, 0},    {U'\u0105', "", true, true, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<unsigned>(c.typed));
    SCOPED_TRACE(c.text);
    EXPECT_EQ(catalogue::numeric_key(c.typed, c.text, c.negative, c.decimal), c.accepted);
  }
}

TEST(Catalogue, NumbersAreNormalisedToTheirDecimals) {
  const struct {
    const char* text;
    std::int16_t decimals;
    bool zero;
    const char* expected;
  } cases[] = {
      {"1", 4, false, "1,0000"}, {"abc", 4, true, "0,0000"},      {"abc", 4, false, ""},     {"", 2, true, "0,00"},
      {"", 2, false, ""},        {"2,345", 2, true, "2,35"},      {",5", 0, true, "1"},      {"2.5", 2, true, "0,00"},
      {"-3", 2, false, "-3,00"}, {"1 000,5", 2, true, "1000,50"}, {"1E400", 1, true, "0,0"},
  };
  for (const auto& c : cases) EXPECT_EQ(catalogue::normalised_number(c.text, c.decimals, c.zero), c.expected) << c.text;
}

TEST(Catalogue, TextBetweenQuotesKeepsItsOwnQuotesDoubled) {
  EXPECT_EQ(catalogue::quoted("O'Hara''s"), "'O''Hara''''s'");
  EXPECT_EQ(catalogue::quoted(quor::Date::from_ymd(2008, 1, 31)), "'2008.01.31'");
}

TEST(Catalogue, TextBoxesAreSelectedByCharactersAndClearedWithTheirTag) {
  quor::ControlSet controls;
  quor::TextBox box(controls, "txtName");
  box.set_text("ąžu");
  box.set_tag("17");
  catalogue::select_all(box);
  EXPECT_EQ(box.selection_start(), 0U);
  EXPECT_EQ(box.selection_length(), 3U);
  catalogue::clear(box);
  EXPECT_EQ(box.text() + box.tag(), "");
}

// Answers as told and writes down what it was asked.
class AskedApplication : public quor::TestApplication {
 public:
  using TestApplication::TestApplication;
  bool HasRight(quor::UserRight right, const std::string& object_type, std::int32_t flag) override {
    asked += std::to_string(static_cast<int>(right)) + object_type + "/" + std::to_string(flag) + " ";
    return granted == right;
  }
  quor::PickedObject SelectObject(const std::string& object_type, const std::string& current,
                                  const std::string& mode) override {
    asked += object_type + "/" + current + "/" + mode;
    return {.Identity = "O040220017#G1", .Name = "A lygis"};
  }
  quor::UserRight granted = quor::UserRight::kWrite;
  std::string asked;
};

TEST(Catalogue, TheFiveRightsAreAskedInOrderAndKeptInOrder) {
  quor::TestCompany company;
  AskedApplication application(company.company(), {});
  const quor::UserRight rights_in_order[] = {quor::UserRight::kView, quor::UserRight::kCreate, quor::UserRight::kDelete,
                                             quor::UserRight::kPrint, quor::UserRight::kWrite};
  for (std::size_t i = 0; i < 5; ++i) {
    application.granted = rights_in_order[i];
    application.asked.clear();
    catalogue::Rights rights{.flags = {true, true, true, true, true}};
    catalogue::query_rights(application, rights, "O0402200");
    EXPECT_EQ(application.asked, "0O0402200/0 1O0402200/0 2O0402200/0 3O0402200/0 4O0402200/0 ");
    std::array<bool, 5> expected{};
    expected.at(i) = true;
    EXPECT_EQ(rights.flags, expected);
    EXPECT_EQ(rights.may_write(), i == 4);
  }
}

TEST(Catalogue, AnObjectIsPickedByTheTypeInFrontOfTheCode) {
  quor::TestCompany company;
  AskedApplication application(company.company(), {});
  EXPECT_EQ(catalogue::pick_object(application, "O040220099", "O04022005", "1"), "O040220017#G1");
  EXPECT_EQ(application.asked, "O0402200/O04022005/1");
  // Nobody is there to choose in the plain application.
  EXPECT_EQ(catalogue::pick_object(company.application(), "O0402200", "", ""), "");
}

}  // namespace
}  // namespace velmora
