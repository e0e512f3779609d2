// What the program refuses, and with which words, to whom a company's users and rights do not let.
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/running.h"

namespace quor {
namespace {

using Words = std::vector<std::string>;

TEST(RightsProgram, EveryCommandAsksWhoActs) {
  const TemporaryFolder folder;
  const auto quor = [&](const char* user, Words words) {
    if (*user != '\0') words.insert(words.end(), {"--user", user});
    return run_quor(folder.path(""), words);
  };
  std::ofstream(folder.path("users.csv")) << "id,name,administrator\n1,Vadovė,1\n2,Jonas,0\n3,Petras,0\n";
  std::ofstream(folder.path("nobody.csv")) << "id,name,administrator\n1,Vadovė,0\n";
  std::ofstream(folder.path("rights.csv")) << "user_id,component,can_view,can_create,can_delete,can_print,can_write\n"
                                              "2,DLL|L04010021,1,0,0,0,0\n";
  ASSERT_EQ(quor("", {"init"}).status, 0);
  EXPECT_EQ(quor("", {"import", "users", "nobody.csv"}).err,
            "quor: Bent vienas naudotojas turi būti administratorius.\n");
  ASSERT_EQ(quor("", {"import", "users", "users.csv"}).status, 0);
  ASSERT_EQ(quor("Vadovė", {"import", "rights", "rights.csv"}).status, 0);
  ASSERT_EQ(quor("Vadovė", {"month", "2008-01"}).status, 0);
  ASSERT_EQ(quor("Vadovė", {"backup", "kopija.quor"}).status, 0);
  const struct {
    const char* user;
    Words words;
    const char* may_not;  // "" when it is done
  } kCases[] = {
      {"Jonas", {"preview", "salary", "2008-01", "--department", "1"}, ""},
      {"Jonas", {"preview", "supplements", "2008-01"}, ""},
      {"Jonas", {"export", "salary_rows"}, ""},
      {"Jonas", {"call", "GetMonthSalaryValue", "130", "9.7", "1"}, ""},
      {"Jonas",
       {"preview", "salary", "2008-01", "--format", "pdf", "--output", "a.pdf"},
       "spausdinti darbo užmokesčio sąrašų."},
      {"Jonas", {"print", "categories"}, "spausdinti pareigybių kategorijų sąrašų."},
      {"Jonas", {"explain", "2008-01", "3"}, ""},
      {"Jonas",
       {"explain", "2008-01", "3", "--format", "pdf", "--output", "a.pdf"},
       "spausdinti atsiskaitymo lapelių."},
      {"Petras", {"explain", "2008-01", "3"}, "peržiūrėti darbo užmokesčio."},
      {"Petras", {"room", "2008-01"}, "peržiūrėti darbo užmokesčio."},
      {"Petras", {"steps", "2008-01"}, "peržiūrėti darbo užmokesčio."},
      {"Jonas", {"month", "2008-01"}, "skaičiuoti darbo užmokesčio."},
      {"Jonas", {"month", "close", "2008-01"}, "uždaryti mėnesio: tai leidžiama tik administratoriui."},
      {"Jonas", {"import", "users", "users.csv"}, "įkelti lentelės „users“: tai leidžiama tik administratoriui."},
      {"Jonas", {"import", "rights", "rights.csv"}, "įkelti lentelės „rights“: tai leidžiama tik administratoriui."},
      {"Jonas", {"export", "--all", "b"}, "išvesti lentelės „users“: tai leidžiama tik administratoriui."},
      {"Jonas", {"backup", "b.quor"}, "daryti įmonės atsarginės kopijos: tai leidžiama tik administratoriui."},
      {"Jonas",
       {"restore", "kopija.quor"},
       "atkurti įmonės iš atsarginės kopijos: tai leidžiama tik administratoriui."},
      {"Petras", {"preview", "supplements", "2008-01"}, "peržiūrėti darbo užmokesčio."},
      {"Petras", {"print", "categories"}, "peržiūrėti pareigybių kategorijų."},
      {"Petras", {"get", "Employees"}, "peržiūrėti darbuotojų."},
      {"Petras", {"call", "GetMonthSalaryValue", "130", "9.7", "1"}, "peržiūrėti darbo užmokesčio."},
      {"", {"get", "Employees"}, "peržiūrėti darbuotojų. Naudotojo „konsolė“ įmonėje nėra."},
  };
  const std::string before = folder.contents();
  for (const auto& c : kCases) {
    const Outcome run = quor(c.user, c.words);
    const bool done = *c.may_not == '\0';
    EXPECT_EQ(run.status, done ? 0 : 1) << c.words[0];
    EXPECT_EQ(run.err, done ? "" : "quor: Neturite teisės " + std::string(c.may_not) + "\n");
    EXPECT_EQ(run.out.empty(), !done) << c.words[0];
    EXPECT_EQ(folder.contents(), before) << c.words[0];
  }
}

}  // namespace
}  // namespace quor
