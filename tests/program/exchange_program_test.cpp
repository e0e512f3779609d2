// `quor export` and `quor import` as a clerk runs them.
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/company_place.h"
#include "tests/support/running.h"

namespace quor {
namespace {

using Words = std::vector<std::string>;

class ExchangeProgram : public testing::Test {
 protected:
  Outcome quor(const Words& words) const { return run_quor(folder_.path(""), words); }
  void write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_.path(name), std::ios::binary) << text;
  }
  TemporaryFolder folder_;
};

TEST_F(ExchangeProgram, AClerkMovesACompanyAndBringsWorkedTimeIn) {
  ASSERT_EQ(quor({"init"}).status, 0);
  EXPECT_EQ(quor({"export", "--all", "duomenys"}).out, "Įrašytos visos lentelės: „duomenys“.\n");
  EXPECT_EQ(quor({"init", "--empty", "--company", "kita.quor"}).out, "Sukurta tuščia įmonė „kita.quor“.\n");
  EXPECT_EQ(quor({"export", "employees", "--company", "kita.quor"}).out, "id,department_id,name,usr_acc_date\r\n");
  const Outcome moved = quor({"import", "--all", "duomenys", "--company", "kita.quor"});
  EXPECT_EQ(std::to_string(moved.status) + moved.err, "0");
  EXPECT_NE(moved.out.find("duomenys/employees.csv: naujų 30, pakeistų 0, nepakitusių 0.\n"), std::string::npos);
  for (const char* table : {"employees", "positions", "extra_charges"}) {
    const Outcome exported = quor({"export", table});
    EXPECT_GT(exported.out.size(), 1000U);
    EXPECT_EQ(quor({"export", table, "--company", "kita.quor"}).out, exported.out);
  }

  write("laikas.csv", "employee_id;date;time_code;hours\r\n1;2008-01;FD;167,5\r\n2;2008-01-15;FD;8\r\n");
  EXPECT_EQ(quor({"import", "worked_time", "laikas.csv"}).out, "laikas.csv: naujų 2, pakeistų 0, nepakitusių 0.\n");
  EXPECT_EQ(quor({"import", "worked_time", "laikas.csv"}).out, "laikas.csv: naujų 0, pakeistų 0, nepakitusių 2.\n");
  write("daug.csv", "employee_id,date,time_code,hours\n3,2008-01,FD,200\n");
  const Outcome odd = quor({"import", "worked_time", "daug.csv"});
  EXPECT_EQ(
      std::to_string(odd.status) + odd.err,
      "0įspėjimas: daug.csv:2: stulpelis „hours“ (valandos): kodo FD valandų per mėnesį iš viso 200, o mėnesio norma "
      "184\n");
  EXPECT_EQ(quor({"export", "worked_time", "--output", "atgal.csv"}).out, "");
  EXPECT_EQ(quor({"import", "worked_time", "atgal.csv"}).out, "atgal.csv: naujų 0, pakeistų 0, nepakitusių 3.\n");
}

TEST_F(ExchangeProgram, AForeignFileIsTriedFirstAndComesInByItsMapping) {
  ASSERT_EQ(quor({"init"}).status, 0);
  write("zini.csv", "Tab. Nr.;Diena arba mėnuo;LAIKO KODAS;Val.;Pastaba\n1;2008-01-15;VD;4;y\n");
  const Outcome unknown = quor({"import", "zini.csv"});
  EXPECT_EQ(unknown.status, 1);
  EXPECT_NE(unknown.err.find("artimiausia „Darbo laikas“ (worked_time)"), std::string::npos) << unknown.err;
  write("a.json", R"({"columns": {"Tab. Nr.": "darbuotojas", "Val.": "hours", "Pastaba": ""}})");
  const Words words = {"import", "zini.csv", "--mapping", "a.json"};
  Words trial = words;
  trial.emplace_back("--dry-run");
  const std::string would =
      "2: nauja (darbuotojas 1, diena arba mėnuo 2008-01-15, laiko kodas VD): valandos 4\n"
      "zini.csv: būtų naujų 1, pakeistų 0, nepakitusių 0.\n";
  EXPECT_EQ(quor(trial).out, would);
  EXPECT_EQ(quor(trial).out, would);
  EXPECT_EQ(quor(words).out, "zini.csv: naujų 1, pakeistų 0, nepakitusių 0.\n");
  EXPECT_EQ(quor({"import", "darbo laikas", "zini.csv", "--mapping", "a.json"}).out,
            "zini.csv: naujų 0, pakeistų 0, nepakitusių 1.\n");
}

TEST_F(ExchangeProgram, ACompanyToStartWithPaysItsFirstPersonAndComesBackFromItsCopy) {
  ASSERT_EQ(quor({"init", "--start", "Mano įstaiga"}).status, 0);
  const Outcome copied = quor({"backup", "kopija.quor"});
  EXPECT_EQ(std::to_string(copied.status) + copied.err, "0");
  write("e.csv", "id,department_id,name\n1,1,Jonaitis Jonas\n");
  write("x.csv", "ID;darbuotojas;stažo data;stažo metai;stažo mėnesiai\n1;1;2010-01-15;0;0\n");
  write("p.csv",
        "id,employee_id,contract_guid,norm_guid,constant_type_id,category_id,share,date_from\n1,1,K,N,1,6,1,2020-01-"
        "01\n");
  for (const char* file : {"e.csv", "x.csv", "p.csv"}) ASSERT_EQ(quor({"import", file}).status, 0);
  // 130 × 7.6 = 988, to a multiple of 5; 16 years of service.
  EXPECT_NE(quor({"month", "2026-01", "--format", "csv"}).out.find(",990,990,16,16,158.4,"), std::string::npos);
  const Outcome restored = quor({"restore", "kopija.quor"});
  EXPECT_EQ(std::to_string(restored.status) + restored.err, "0");
  EXPECT_EQ(quor({"export", "employees"}).out, "id,department_id,name,usr_acc_date\r\n");
  EXPECT_NE(restored.out.find("prieš-atkūrimą"), std::string::npos);
  EXPECT_EQ(quor({"restore", "e.csv"}).status, 1);
  EXPECT_EQ(quor({"backup", "kopija.quor"}).status, 1) << "never over another copy";
  EXPECT_EQ(quor({"backup", "sample.quor"}).status, 1);
}

TEST_F(ExchangeProgram, FaultsAreListedAndWordsThatAreOffAreNamed) {
  ASSERT_EQ(quor({"init", "--empty"}).status, 0);
  write("a.csv", "id,parent_id,name\n1,7,A\nx,,\n");
  const Outcome refused = quor({"import", "departments", "a.csv"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err,
            "a.csv:2: stulpelis „parent_id“ (aukštesnis padalinys): „7“: lentelėje „Padaliniai“ (departments) tokio "
            "įrašo nėra\n"
            "a.csv:3: stulpelis „id“: „x“ nėra ID (sveikasis skaičius nuo 1 iki 2000000000)\n"
            "a.csv:3: stulpelis „name“ (pavadinimas): trūksta reikšmės\n"
            "quor: neįrašyta nieko; klaidų: 3\n");
  const struct {
    Words words;
    int status;
    const char* named;
  } kCases[] = {
      {{"export"}, 2, "--all"},
      {{"export", "company"}, 2, "„company“"},
      {{"export", "employees", "--all", "b"}, 2, "--all"},
      {{"import"}, 2, "LENTELĖ"},
      {{"import", "employees"}, 2, "FAILAS"},
      {{"import", "next_ids", "a.csv"}, 2, "„next_ids“"},
      {{"import", "departments", "--all", "."}, 2, "„departments“"},
      {{"import", "departments", "nėra.csv"}, 1, "„nėra.csv“"},
      {{"import", "departments", "."}, 1, "„.“"},
      {{"import", "--all", "."}, 1, "a.csv“"},
      {{"import", "--all", "nėra"}, 1, "„nėra“"},
      {{"export", "--all", "."}, 1, "„.“"},
      {{"export", "--all", "nėra/b"}, 1, "„nėra/b“"},
      {{"init", "--empty"}, 1, "„sample.quor“"},
  };
  const std::string before = folder_.contents();
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.words.back());
    const Outcome run = quor(c.words);
    EXPECT_EQ(run.status, c.status) << run.err;
    EXPECT_NE(run.err.substr(0, run.err.find('\n')).find(c.named), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(folder_.contents(), before);
  }
}

}  // namespace
}  // namespace quor
