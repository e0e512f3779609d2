// The commands that explain and look ahead, run as a person runs them.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/support/running.h"

namespace quor {
namespace {

class InsightProgramTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(quor({"init", "--employees", "30"}).status, 0); }
  Outcome quor(const std::vector<std::string>& words) { return run_quor(folder_.path(""), words); }

  TemporaryFolder folder_;
};

TEST_F(InsightProgramTest, ExplainsWhatTheMonthCalculates) {
  const Outcome before = quor({"explain", "2008-01", "3"});
  EXPECT_EQ(before.status, 0);
  EXPECT_EQ(before.err, "Mėnesio 2008.01 dokumento nėra: rodoma, kas būtų apskaičiuota dabar.\n");
  const auto month = nlohmann::json::parse(quor({"month", "2008-01", "--format", "json"}).out);
  const Outcome explained = quor({"explain", "2008-01", "3", "--format", "json"});
  EXPECT_EQ(explained.err, "");
  const auto explanation = nlohmann::json::parse(explained.out);
  EXPECT_EQ(explanation["document"], "same");
  int found = 0;
  for (const auto& row : month["rows"]) {
    if (row[0] != explanation["person"]) continue;
    ++found;
    EXPECT_EQ(explanation["amounts"].back()["number"], row[12]);
    EXPECT_EQ(explanation["amounts"][0]["number"], row[5]);
  }
  EXPECT_EQ(found, 1);
  EXPECT_EQ(explanation["calls"][0]["method"], "GetSalaryComponents");
  EXPECT_EQ(explanation["calls"][0]["requests"].back()["row"]["Factor"],
            explanation["amounts"][0]["inputs"][1]["number"]);

  const std::string person = explanation["person"];
  EXPECT_EQ(quor({"explain", "2008-01", person}).out.find(person + ", 2008.01\nPareiginė alga"), 0U);
  EXPECT_EQ(quor({"explain", "2008-01", "3", "--format", "pdf", "--output", "lapelis.pdf"}).status, 0);
  struct Slip {
    std::vector<std::string> words;
    int status;
    const char* text;
  };
  const Slip kSlips[] = {{{"explain", "2008-01", "Zzz"}, 2, "nėra darbuotojo „Zzz“"},
                         {{"explain", "2008-01", "999"}, 1, "Nėra darbuotojo, kurio numeris 999."},
                         {{"explain", "1950-01", "3"}, 1, "mėnesį 1950.01 pareigų neturi"},
                         {{"explain", "2008-13", "3"}, 2, "2008-13"}};
  for (const Slip& slip : kSlips) {
    const Outcome outcome = quor(slip.words);
    EXPECT_EQ(outcome.status, slip.status) << slip.text;
    EXPECT_NE(outcome.err.find(slip.text), std::string::npos) << outcome.err;
  }
}

TEST_F(InsightProgramTest, ShowsWhatMayStillBeGiven) {
  const auto people = nlohmann::json::parse(quor({"room", "2008-01", "--format", "json"}).out);
  const auto departments = nlohmann::json::parse(quor({"room", "2008-01", "--by-department", "--format", "json"}).out);
  const auto cents = [](const nlohmann::json& cell) {
    std::string digits = cell;
    std::erase(digits, ',');
    return std::stol(digits);
  };
  long sum = 0;
  for (const auto& line : people["lines"]) {
    if (line[9].get<std::string>().find("virš") == std::string::npos) sum += cents(line[9]);
  }
  EXPECT_GT(sum, 0);
  EXPECT_EQ(cents(departments["lines"].back()[6]), sum);
  EXPECT_EQ(quor({"room", "2008-01", "--department", "77"}).status, 1);
}

TEST_F(InsightProgramTest, TellsWhoReachesAServiceStep) {
  const Outcome steps = quor({"steps", "2008-02", "--months", "3", "--format", "csv"});
  EXPECT_EQ(steps.status, 0);
  EXPECT_EQ(steps.out.find("\"Pavardė, vardas\",Diena,"), 0U) << steps.out.substr(0, 80);
  EXPECT_NE(steps.out.find(",2008.02.01,"), std::string::npos);
  EXPECT_EQ(steps.out.find(",2008.05.01,"), std::string::npos);
  EXPECT_EQ(quor({"steps", "2008-02", "--months", "0"}).status, 1);
}

TEST_F(InsightProgramTest, ChecksTablesOfCases) {
  const Outcome green = quor({"check", VELMORA_RULES});
  EXPECT_EQ(green.status, 0) << green.out;
  EXPECT_NE(green.out.find("✓ " VELMORA_RULES "/limits.csv: Priedų ir priemokų ribos: "), std::string::npos)
      << green.out;
  EXPECT_EQ(green.err + (green.out.find('\x1b') == std::string::npos ? "" : "coloured"), "");

  const std::string folder = folder_.path("lentelės");
  std::filesystem::create_directory(folder);
  EXPECT_EQ(quor({"check", folder}).status, 1) << "nothing was checked";
  const std::string file = folder + "/skalė.csv";
  std::ofstream(file) << "Pastaba,Skalė,Metai,Stažo procentas\nriba,0-5:3 5-10:5,5,3\ngera,0-5:3,4,3\n";
  const Outcome red = quor({"check", folder});
  EXPECT_EQ(red.status, 1);
  EXPECT_EQ(red.out, "✗ " + file +
                         ": Stažo skalė: 1 iš 2\n  ✗ 2 eilutė „riba“: Skalė 0-5:3 5-10:5; Metai 5\n"
                         "      Stažo procentas: turi būti 3, gauta 5\n"
                         "      pirma pakopa, kurioje telpa 5 m., yra nuo 5 (imtinai) iki 10 (neimtinai): 5 %\n"
                         "Lentelių 1, atvejų 2, raudonų 1\n");
  const auto json = nlohmann::json::parse(quor({"check", file, "--format", "json"}).out);
  EXPECT_EQ(json["tables"][0]["rows"][0]["results"][0]["got"], "5");
  EXPECT_EQ(json["tables"][0]["rows"][1]["passed"], true);
  EXPECT_NE(quor({"check", file, "--format", "csv-semicolon"}).out.find(";2;riba;Stažo procentas;3;5;ne;"),
            std::string::npos);
  std::ofstream(file) << "Skalė;Metai;Procentas\n0-5:3;1;3\n";
  const Outcome unread = quor({"check", file});
  EXPECT_EQ(unread.status, 1);
  EXPECT_NE(unread.out.find("1 eilutė: taisyklės „Stažo skalė“ lentelei trūksta"), std::string::npos) << unread.out;
}

}  // namespace
}  // namespace quor
