// The tables of cases that are shipped, through the plug-in as it is loaded; and what a wrong table is told.
#include "host/insight/rules/rule_tables.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "host/insight/rules/rule_reading.h"
#include "host/store/file_text.h"
#include "tests/support/company_place.h"
#include "tests/support/outcome.h"

namespace quor {
namespace {

class RuleTablesTest : public testing::Test {
 protected:
  RuleTable checked(const std::string& bytes) {
    const std::string file = folder_.path("table.csv");
    std::ofstream(file) << bytes;
    return check_rule_table(bench_, file);
  }

  TemporaryFolder folder_;
  RuleBench bench_{[](Application& application) { application.load_plugin(VELMORA_PLUGIN); }};
};

TEST_F(RuleTablesTest, EveryShippedCaseIsAsItIsWritten) {
  std::set<std::string> tried;
  for (const std::string& file : rule_files(VELMORA_RULES)) {
    const RuleTable table = check_rule_table(bench_, file);
    EXPECT_EQ(table.fault, "") << file;
    tried.insert(table.rule);
    for (const RuleRow& row : table.rows) {
      EXPECT_TRUE(row.passed()) << file << ", " << case_text(row) << ": " << row.fault << "\n" << row.explanation;
      for (const RuleResult& each : row.results) {
        EXPECT_TRUE(each.passed) << each.column << ": expected " << each.expected << ", got " << each.got;
      }
    }
  }
  for (const Rule& rule : rules()) EXPECT_TRUE(tried.contains(rule.caption)) << rule.caption;
}

// In the place of each expected value another one, then none, or a value where none was expected: that cell is red, and
// no other.
TEST_F(RuleTablesTest, AWrongExpectationIsRedInEveryColumnOfEveryRule) {
  for (const std::string& file : rule_files(VELMORA_RULES)) {
    const std::string bytes = text_of_file(file);
    const RuleCases cases = read_rule_cases(bytes);
    const std::string head = bytes.substr(0, bytes.find('\n') + 1);
    const std::string first = bytes.substr(head.size(), bytes.find('\n', head.size()) - head.size());
    std::vector<std::string> cells;
    std::istringstream row_text(first + ";");
    for (std::string cell; std::getline(row_text, cell, ';');) cells.push_back(cell);
    const std::size_t results_at = 1 + cases.rule->facts.size();
    for (std::size_t at = results_at; at < cells.size(); ++at) {
      for (const char* const planted : {"987654", ""}) {
        if (cells[at] == planted) continue;
        std::string row = cells.front();
        for (std::size_t i = 1; i < cells.size(); ++i) row += ";" + (i == at ? planted : cells[i]);
        const RuleTable table = checked(head + row + "\n");
        ASSERT_EQ(table.rows.size(), 1U) << table.fault;
        EXPECT_FALSE(table.passed());
        for (std::size_t i = 0; i < cases.rule->results.size(); ++i) {
          EXPECT_EQ(table.rows[0].results[i].passed, i != at - results_at) << file << ": " << row;
        }
      }
    }
  }
}

TEST_F(RuleTablesTest, ARedRowTellsWhatWasGotAndHowItComesAbout) {
  // As a spreadsheet saves it: its mark, empty cells and rows behind what is filled in. And with commas and points.
  for (const char* bytes : {"\xEF\xBB\xBF"
                            "ETATO DALIS;Bazinė alga;Koeficientas;Sandauga;Sveikais;Paskutinis skaitmuo;Penkių "
                            "kartotinis;Mėnesio alga;;\r\n1/2;1 30,0;9,7;1261;1261;1;1265;630;;\r\n;;;;;;;;;\r\n",
                            "Etato dalis,Bazinė alga,Koeficientas,Sandauga,Sveikais,Paskutinis skaitmuo,Penkių "
                            "kartotinis,Mėnesio alga\n\n0.5,130,9.7,1261.0,1261,1,1265,630\n"}) {
    const RuleTable table = checked(bytes);
    ASSERT_EQ(table.rows.size(), 1U) << table.fault;
    const RuleRow& row = table.rows[0];
    EXPECT_EQ(row.results[3].expected + "/" + row.results[3].got, "1265/1260");
    EXPECT_TRUE(row.results[4].passed);
    EXPECT_EQ(row.facts, "Bazinė alga 130; Koeficientas 9,7; Etato dalis 0,5");
    EXPECT_EQ(row.explanation,
              "130 x 9,7 = 1261; sveikais 1261, paskutinis skaitmuo 1, todėl 1260; 1260 x 0,5, iki cento 630");
  }
}

TEST_F(RuleTablesTest, TheLastBitCountsAndIsShown) {
  const char head[] = "Pagrindas;Procentas;Fiksuota suma;Nesuapvalintas priedas;Priedas\n";
  const RuleTable table = checked(std::string(head) + "1;10;;0,1;0,1\n1;10;;0,10000000000000002;0,1\n1;2000;;20;20\n");
  ASSERT_EQ(table.rows.size(), 3U) << table.fault;
  EXPECT_TRUE(table.rows[0].passed());
  EXPECT_EQ(table.rows[1].results[0].expected + "/" + table.rows[1].results[0].got, "0,10000000000000002/0,1");
  EXPECT_EQ(table.rows[2].fault.find("Programa atsisakė: priedo procentas 2000"), 0U) << table.rows[2].fault;
  EXPECT_EQ(summary_text(table), "Priedas: 1 iš 3");
  // Half a cent is a base to the check and none to percentages of whole cents: that is no explanation.
  const RuleTable unexplained = checked(
      "Pagrindas;Priedai;Priemokos;Priedų riba;Priemokų riba;Bendra riba;Priedų dalis;Priemokų dalis;Bendra "
      "dalis;Kodas;Pranešimas\n0,005;500;;55;;;0;;;4;CheckSalaryRows: Priedų suma viršija 55%!\n");
  EXPECT_EQ(unexplained.rows[0].fault, "Kodas: atkartojus skaičiavimą išeina 0, o programa atsakė 4.");
  EXPECT_FALSE(unexplained.passed());
}

TEST_F(RuleTablesTest, AFaultInTheTableNamesItsLineAndColumn) {
  const char scale[] = "Skalė;Metai;Stažo procentas\n";
  const char part[] =
      "Mėnuo;Mėnesio norma;Pareigos nuo;Pareigos iki;Etato dalis;Bazinė alga;Koeficientas;Dirbta valandų;Darbo "
      "dienos;Valandos;Dirbta dalis;Pareiginė alga;Už dirbtą laiką\n";
  const std::pair<std::string, const char*> cases[] = {
      {"", "failas tuščias"},
      {scale, "nėra nė vieno atvejo"},
      {std::string(scale) + ";;\n", "nėra nė vieno atvejo"},
      {"Vardas;Suma\n1;2\n", "1 eilutė, stulpelis „Vardas“: pagal stulpelius lentelė nepažįstama"},
      {"Skalė;Metai\n0-5:3;1\n", "1 eilutė: taisyklės „Stažo skalė“ lentelei trūksta stulpelio „Stažo procentas“"},
      {"Skalė;Metai;Stažo procentas;Paklaida\n0-5:3;1;3;1\n", "1 eilutė, 4-as stulpelis „Paklaida“"},
      {"Skalė;Metai;Stažo procentas;metai\n0-5:3;1;3;1\n", "1 eilutė, 4-as stulpelis „metai“: toks stulpelis jau yra"},
      {std::string(scale) + "0-5:3;x;3\n", "2 eilutė, stulpelis „Metai“: „x“ nėra sveikasis skaičius"},
      {std::string(scale) + "0-5:3;1;3 %\n", "2 eilutė, stulpelis „Stažo procentas“: „3 %“ nėra skaičius"},
      {std::string(scale) + "0-5:3;1;3/0\n", "2 eilutė, stulpelis „Stažo procentas“: „3/0“ nėra skaičius"},
      {std::string(scale) + "0-5:3;1;3\n5:3;;3\n", "3 eilutė, stulpelis „Skalė“: „5:3“ nėra skalė"},
      {std::string(scale) + "0-5:3;;3\n", "2 eilutė, stulpelis „Metai“: langelis tuščias"},
      {std::string(scale) + "0-5:3;1;3;4\n", "2 eilutė: langelių 4, o stulpelių 3"},
      {std::string(scale) + "0-5:3;1\n", "2 eilutė: langelių 2, o stulpelių 3"},
      {std::string(scale) + "\"0-5:3;1;3\n", "2 eilutė"},
      {std::string(part) + "2008.13;168;;;1;130;9,7;;21;168;1;1260;1260\n", "2 eilutė, stulpelis „Mėnuo“: „2008.13“"},
      {std::string(part) + "2008.02;0;;;1;130;9,7;;21;168;1;1260;1260\n", "2 eilutė, stulpelis „Mėnesio norma“: „0“"},
      {std::string(part) + "2008.02;168;2008.03.01;;1;130;9,7;;21;168;1;1260;1260\n",
       "2 eilutė, stulpelis „Pareigos nuo“: „2008.03.01“"},
      {"Pagrindas;Procentas;Fiksuota suma;Nesuapvalintas priedas;Priedas\n1260;5;6;63;63\n",
       "2 eilutė, stulpelis „Procentas“: „5“: rašykite procentą arba fiksuotą sumą"},
  };
  for (const auto& [bytes, fault] : cases) {
    const RuleTable table = checked(bytes);
    EXPECT_NE(table.fault.find(fault), std::string::npos) << "expected: " << fault << "\ngot: " << table.fault;
    EXPECT_TRUE(table.rows.empty() && !table.passed());
  }
  const RuleTable several = checked(std::string(scale) + "x;y;z\n");
  EXPECT_EQ(std::count(several.fault.begin(), several.fault.end(), '\n'), 2) << several.fault;
  for (const std::string& place : {folder_.path("nothing"), folder_.path("empty")}) {
    std::filesystem::create_directory(folder_.path("empty"));
    EXPECT_EQ(outcome([&] { return rule_files(place).front(); }), "NotFound") << place;
  }
}

}  // namespace
}  // namespace quor
