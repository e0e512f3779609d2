#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace quor {
namespace {

class RightsTest : public testing::TestWithParam<Backend> {
 protected:
  // The rights of a user on a component or type as letters, asked through an application with the plug-in loaded.
  std::string rights(const char* user, const char* asked) {
    TestApplication application(company_.company(), {.title = "Testas", .user = user});
    application.load_plugin(VELMORA_PLUGIN);
    std::string letters;
    for (const auto& [right, letter] : {std::pair{UserRight::kView, 'v'},
                                        {UserRight::kCreate, 'c'},
                                        {UserRight::kDelete, 'd'},
                                        {UserRight::kPrint, 'p'},
                                        {UserRight::kWrite, 'w'}}) {
      if (application.HasRight(right, asked, 0)) letters += letter;
    }
    return letters;
  }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(RightsTest);

TEST_P(RightsTest, TheInnermostComponentWithAnEntryDecides) {
  EXPECT_EQ(rights("bet kas", "O0402200"), "vcdpw") << "a company without users";
  company_.given_user("Vadovė", true);
  const std::int32_t by_library = company_.given_user("Ona"), by_section = company_.given_user("Jonas");
  company_.given_user("Be teisių");
  company_.given_rights(by_library, "DLL|L04010021", "vp");
  company_.given_rights(by_library, "COfficeEmployees", "w");
  company_.given_rights(by_library, "O0400100", "v");
  company_.given_rights(by_section, "CSalaryExtraLayout", "vcd");
  company_.given_rights(by_section, "O0402000", "");
  struct Case {
    const char* user;
    const char* asked;
    const char* letters;
  };
  const Case cases[] = {
      {"Vadovė", "O0402200", "vcdpw"},
      {"Vadovė", "O0400100", "vcdpw"},
      {"Be teisių", "O0402200", ""},
      {"Nežinoma", "O0402200", ""},
      {"ona", "O0402200", ""},  // letter case counts
      {"Ona", "COfficeEmployees", "w"},
      {"Ona", "O0402200", "w"},  // the group holds the type
      {"Ona", "CSalaryExtraLayout", "vp"},
      {"Ona", "DLL|L04010021", "vp"},
      {"Ona", "O0402300", "vp"},  // registered, in no group
      {"Ona", "O0400100", "v"},   // the host's own type
      {"Ona", "O0001604", ""},
      {"Ona", "", ""},
      {"Jonas", "O0402200", "vcd"},
      {"Jonas", "O0402300", "vcd"},
      {"Jonas", "O0402000", ""},  // taken away from the type itself
      {"Jonas", "COfficeEmployees", "vcd"},
      {"Jonas", "DLL|L04010021", ""},  // the section does not speak for the library
  };
  for (const Case& c : cases) EXPECT_EQ(rights(c.user, c.asked), c.letters) << c.user << " " << c.asked;
}

TEST_P(RightsTest, TheTablesAreReadOnceUntilTheyChange) {
  company_.given_rights(company_.given_user("testuotoja"), "A", "w");
  TestApplication& application = company_.application();
  EXPECT_TRUE(application.HasRight(UserRight::kWrite, "A", 0));
  const std::uint64_t before = company_.database().statements();
  EXPECT_FALSE(application.HasRight(UserRight::kView, "A", 0));
  EXPECT_FALSE(application.HasRight(UserRight::kWrite, "B", 0));
  EXPECT_EQ(company_.database().statements(), before);
  {
    Transaction transaction(company_.database());
    company_.database().execute("UPDATE rights SET can_view = 1");
    transaction.commit();
  }
  company_.company().refresh();
  EXPECT_TRUE(application.HasRight(UserRight::kView, "A", 0));
}

}  // namespace
}  // namespace quor
