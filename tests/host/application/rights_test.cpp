#include "host/company/rights.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

#include "frame/contract/quor_object_ui.h"
#include "host/application/user_rights.h"
#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "host/exchange/table_rights.h"
#include "host/payroll/calculated_month.h"
#include "host/payroll/closed_months.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class RightsTest : public testing::TestWithParam<Backend> {
 protected:
  // The rights of a user on a component or type as letters, asked through an application with the plug-in loaded.
  std::string rights(const char* user, const char* asked) {
    TestApplication application(
        company_.company(),
        {.title = "Testas", .user = user, .edit_charge = edit_personal_charge, .host_types = host_editors()});
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
  company_.given_rights(by_section, "O0402200", "w");
  const struct {
    const char *user, *asked, *letters;
  } cases[] = {
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
      {"Jonas", "O0402200", "w"},
      {"Jonas", "O0402300", "vcd"},
      {"Jonas", "O0402000", ""},           // taken away from the type itself
      {"Jonas", "COfficeEmployees", "w"},  // the key by which the type's editor asks
      {"Ona", "O0400110", "v"},            // a charge is its employee's
      {"Jonas", "DLL|L04010021", ""},      // the section does not speak for the library
  };
  for (const auto& c : cases) EXPECT_EQ(rights(c.user, c.asked), c.letters) << c.user << " " << c.asked;
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

// ---- what is asked where it is served

constexpr char kExtension[] = "O0402000";
constexpr char kEmployee[] = "O0400100";
constexpr char kAll[] = "vcdpw";
const Month kMonth = Month::parse("2008-01");

// One company with a person, and what somebody who acts in it is told: "" when he is served.
class Office {
 public:
  Office() {
    company_.given_tariffs();
    company_.given_time_codes();
    const std::int32_t category = company_.given_category("A lygis", {{"2005.01.01", 9.7}});
    company_.given_position({.employee = company_.given_employee("Pirmoji"), .category = category});
    company_.given_user("Vadovė", true);
    jonas_ = company_.given_user("Jonas");
  }

  TestCompany& company() { return company_; }
  void grant_jonas(const char* component, const std::string& letters) {
    company_.database().execute("DELETE FROM rights");
    company_.given_rights(jonas_, component, letters);
  }
  using Service = std::function<void(TestApplication&)>;
  std::string told(const char* user, const Service& service) {
    TestApplication application(company_.company(), {.title = "Testas",
                                                     .user = user,
                                                     .today = day("2008.01.31"),
                                                     .edit_charge = edit_personal_charge,
                                                     .host_types = host_editors()});
    application.load_plugin(VELMORA_PLUGIN);
    std::string text;
    try {
      service(application);
    } catch (const Error& error) {
      text = error.what();
    }
    for (const ShownBox& box : application.shown_boxes()) {
      if (box.buttons == BoxButtons::kOk) text += box.text;
    }
    return text;
  }

 private:
  TestCompany company_;
  std::int32_t jonas_;
};

void fail_by(const std::string& text) {
  if (!text.empty()) throw Error(ErrorKind::kRefused, text);
}

Office::Service get(const char* name, const char* parameter) {
  return [=](TestApplication& a) { fail_by(a.NewMainBO()->RunMethod(name, parameter, 0).Message); };
}
Office::Service list(const char* type) {
  return [=](TestApplication& a) { (void)a.NewMainBO()->GetQuorObjectList(type, "", ""); };
}
Office::Service card(const char* key) {
  return [=](TestApplication& a) { (void)a.GetQuorObjectUIO(key); };
}
Office::Service click(const char* type, const char* object, const char* entry) {
  return [=](TestApplication& a) { (void)a.GetQuorObjectUI(type)->ClickMenu(object, entry, "", ""); };
}
Office::Service take_out(const char* table) {
  return [=](TestApplication& a) { (void)export_table(a.guard(), *find_stored_table(table)); };
}
Office::Service bring_in(const char* table, const std::string& text) {
  return [=](TestApplication& a) {
    const TemporaryFolder folder;
    std::ofstream(folder.path("a.csv")) << text;
    (void)import_tables(a.guard(), {{find_stored_table(table), folder.path("a.csv")}});
  };
}
void calculate(TestApplication& application) { (void)calculate_month(application, kMonth, {}); }

// Who has every right on the component but the one is told; who has that too, is served.
TEST(ServiceRights, EachServiceAsksForItsRightAndChangesNothingWithoutIt) {
  const struct {
    const char* name;
    Office::Service service;
    const char* component;
    char right;
    const char* refused;
  } kCases[] = {
      {"request", get("GetEmployees", "None"), kEmployee, 'v', "peržiūrėti darbuotojų"},
      {"pay", get("GetOfficeEmployeePreview", "'2008.01.31',0"), kExtension, 'v', "peržiūrėti darbo užmokesčio"},
      {"constants", get("GetSalaryConstants", "'2008.01.31'"), "O0402300", 'v',
       "peržiūrėti darbo užmokesčio konstantų"},
      {"engine", [](TestApplication& a) { (void)a.new_data_object(kExtension); }, kExtension, 'v',
       "peržiūrėti darbo užmokesčio"},
      {"list", list("O0402200"), "O0402200", 'v', "peržiūrėti pareigybių kategorijų"},
      {"list of a parent", list("'O0402000','O04001001'"), kExtension, 'v', "peržiūrėti darbo užmokesčio"},
      {"card", card("O04001001"), kEmployee, 'v', "peržiūrėti darbuotojų"},
      {"preview", click("O0402200", "", "2"), "CSalaryExtraLayout", 'v', "peržiūrėti darbo užmokesčio"},
      {"print", click("O0402200", "", "6"), "COfficeEmployees", 'p', "spausdinti pareigybių kategorijų sąrašų"},
      {"printed data", click("O0402200", "", "6"), "COfficeEmployees", 'v', "peržiūrėti pareigybių kategorijų"},
      {"new category", click("O0402200", "", "1"), "COfficeEmployees", 'c', "kurti pareigybių kategorijų"},
      {"new settings", click("O0402300", "", "1"), "O0402300", 'c', "kurti valstybės tarnautojų nustatymų"},
      {"new settings, to be written", click("O0402300", "", "1"), "O0402300", 'w',
       "keisti valstybės tarnautojų nustatymų"},
      {"new charge",
       [](TestApplication& a) { (void)a.GetQuorObjectUIO("O04001001")->Methods("PersonalExtraCharge", {""}); },
       kEmployee, 'c', "kurti darbuotojų priedų"},
      {"deletion", [](TestApplication& a) { (void)a.NewMainBO()->DeleteQuorObject("O04023001"); }, "O0402300", 'd',
       "naikinti valstybės tarnautojų nustatymų"},
      {"calculation", calculate, kExtension, 'w', "skaičiuoti darbo užmokesčio"},
      {"export", take_out("positions"), "DLL|L04010021", 'v', "išvesti lentelės „positions“"},
      {"import, added", bring_in("categories", "id,guid,name\n9,G,B\n"), "O0402200", 'c',
       "įkelti lentelės „categories“"},
      {"import, changed", bring_in("departments", "id,parent_id,name\n1,,Kitas\n"), "O0001604", 'w',
       "įkelti lentelės „departments“"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    Office office;
    const std::int64_t before = office.company().database().change_count();
    std::string others = kAll;
    others.erase(others.find(c.right), 1);
    const std::string unknown = office.told("Svetima", c.service);
    EXPECT_TRUE(unknown.starts_with("Neturite teisės ")) << unknown;
    office.grant_jonas(c.component, others);
    EXPECT_EQ(office.told("Jonas", c.service), std::string("Neturite teisės ") + c.refused + ".");
    EXPECT_EQ(office.company().database().change_count(), before);
    office.grant_jonas(c.component, kAll);
    EXPECT_EQ(office.told("Jonas", c.service), "");
  }
}

TEST(ServiceRights, SomeAreTheAdministratorsWhateverElseIsGranted) {
  const char* const kUsers = "id,name,administrator\n2,Jonas,1\n";
  const struct {
    const char* name;
    Office::Service service;
    const char* refused;
  } kCases[] = {
      {"close", [](TestApplication& a) { close_month(a, kMonth, "skubu"); }, "uždaryti mėnesio"},
      {"reopen", [](TestApplication& a) { reopen_month(a, kMonth, "klaida"); }, "atverti uždaryto mėnesio"},
      {"users", [](TestApplication& a) { (void)company_users(a); }, "tvarkyti naudotojų ir jų teisių"},
      {"no users", [](TestApplication& a) { store_company_users(a, {}); }, "tvarkyti naudotojų ir jų teisių"},
      {"users out", take_out("users"), "išvesti lentelės „users“"},
      {"the company out", [](TestApplication& a) { export_company(a.guard(), TemporaryFolder().path("a")); },
       "išvesti lentelės „users“"},
      {"users in", bring_in("users", kUsers), "įkelti lentelės „users“"},
      {"rights in", bring_in("rights", "user_id,component,can_view,can_create,can_delete,can_print,can_write\n"),
       "įkelti lentelės „rights“"},
      {"documents in", bring_in("documents", "id,guid,employee_id,month,check_code,check_message\n"),
       "įkelti lentelės „documents“"},
      {"closed months in", bring_in("closed_months", "month,closed_by,closed_at\n"), "įkelti lentelės „closed_months“"},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.name);
    Office office;
    Database& database = office.company().database();
    if (std::string_view(c.name) == "reopen") {
      database.execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, '', '')");
    }
    for (const char* component : {"DLL|L04010021", "O0400100", "O0001604", "O0400600"}) {
      office.company().given_rights(2, component, kAll);
    }
    const std::int64_t before = database.change_count();
    EXPECT_EQ(office.told("Jonas", c.service),
              std::string("Neturite teisės ") + c.refused + ": tai leidžiama tik administratoriui.");
    EXPECT_EQ(database.change_count(), before);
    EXPECT_EQ(office.told("Vadovė", c.service), "");
  }
}

TEST(ServiceRights, WhoeverMayCalculateCalculatesWholeAndSeesWhatHeMay) {
  Office office;
  for (const auto& [letters, rows] : {std::pair{"w", 0}, {"vw", 1}}) {
    office.grant_jonas(kExtension, letters);
    EXPECT_EQ(office.told("Jonas",
                          [&](TestApplication& application) {
                            const CalculatedMonth run = calculate_month(application, kMonth, {});
                            EXPECT_EQ(run.done, 1);
                            EXPECT_TRUE(run.faults.empty());
                            EXPECT_EQ(run.rows->RecordCount(), rows);
                            EXPECT_EQ(application.HasRight(UserRight::kView, kEmployee, 0), false) << "as before";
                          }),
              "");
  }
}

TEST(UserRights, UsersNeverStandWithoutAnAdministrator) {
  const struct {
    std::vector<CompanyUser> users;
    const char* file;  // the same as an import
    const char* refused;
  } kCases[] = {
      {{{"ona"}}, "1,ona,0\n", "Bent vienas naudotojas turi būti administratorius."},
      {{{"ona", true}, {""}}, "1,ona,1\n2,\"\",0\n", "Naudotojas neturi vardo."},
      {{{"ona", true}, {"ona"}}, nullptr, "Naudotojas „ona“ įrašytas du kartus."},
      {{{"testuotoja", true}, {"jonas", false, {{"CA", {false, true, false, false, true}}}}},
       "1,testuotoja,1\n2,jonas,0\n",
       ""},
  };
  for (const auto& c : kCases) {
    TestCompany stored, imported;
    const auto told = [](const std::function<void()>& act) {
      const std::string text = error_text(act);
      return text == "no error" ? "" : text;
    };
    EXPECT_EQ(told([&] { store_company_users(stored.application(), c.users); }), c.refused);
    if (c.file != nullptr) {
      const auto import = bring_in("users", std::string("id,name,administrator\n") + c.file);
      EXPECT_EQ(told([&] { import(imported.application()); }), c.refused);
      EXPECT_EQ(company_users(imported.application()).size(), company_users(stored.application()).size());
    }
    const auto users = company_users(stored.application());
    ASSERT_EQ(users.size(), *c.refused == 0 ? 2U : 0U);
    if (!users.empty()) {
      EXPECT_EQ(users[0].rights.at("CA"), (GrantedRights{false, true, false, false, true}));
    }
  }
}

}  // namespace
}  // namespace quor
