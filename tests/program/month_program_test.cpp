// `quor month` under rough treatment: killed, run twice at once, interrupted.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

#include "platform/data/number_text.h"
#include "tests/support/running.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

using Clock = std::chrono::steady_clock;

class MonthProgramTest : public testing::TestWithParam<Backend> {
 protected:
  void given_company(int employees) { EXPECT_EQ(quor({"init", "--employees", std::to_string(employees)}).status, 0); }
  Outcome quor(std::vector<std::string> words) {
    words.insert(words.end(), {"--company", place_->address()});
    return run_quor(folder_.path(""), words);
  }
  std::unique_ptr<RunningQuor> start_month() {
    return std::make_unique<RunningQuor>(folder_.path(""),
                                         std::vector<std::string>{"month", "2008-01", "--company", place_->address()});
  }
  // Each document with what its rows hold, one a line.
  std::vector<std::string> documents() {
    const auto database = Database::open(place_->address());
    const auto rows = database->read(
        "SELECT d.employee_id, (SELECT COUNT(*) FROM time_rows t WHERE t.document_id = d.id),"
        " (SELECT COUNT(*) FROM salary_rows s WHERE s.document_id = d.id),"
        " COALESCE((SELECT SUM(s.sum_a) FROM salary_rows s WHERE s.document_id = d.id), 0.0)"
        " FROM documents d ORDER BY d.employee_id",
        {{"person", FieldType::kInt32},
         {"times", FieldType::kInt32},
         {"sums", FieldType::kInt32},
         {"sum", FieldType::kDouble}});
    std::vector<std::string> lines;
    for (; !rows->Eof(); rows->MoveNext()) {
      lines.push_back(std::to_string(rows->int32({0})) + ";" + std::to_string(rows->int32({1})) + ";" +
                      std::to_string(rows->int32({2})) + ";" + fixed_text(rows->number({3}), 2));
    }
    return lines;
  }
  void remove_documents() {
    const auto database = Database::open(place_->address());
    Transaction transaction(*database);
    for (const char* table : {"salary_rows", "time_rows", "document_positions", "documents"}) {
      database->execute(std::string("DELETE FROM ") + table);
    }
    transaction.commit();
  }

  std::unique_ptr<CompanyPlace> place_ = GetParam().make_place();
  TemporaryFolder folder_;
};
ON_EVERY_DATABASE(MonthProgramTest);

TEST_P(MonthProgramTest, KilledAtAnyMomentItLeavesEachDocumentWholeOrAbsent) {
  given_company(1300);
  const auto start = Clock::now();
  EXPECT_EQ(quor({"month", "2008-01"}).status, 0);
  auto calculation = Clock::now() - start;
  const auto expected = documents();
  ASSERT_GT(expected.size(), 1000U) << "more than one transaction";

  int killed = 0;
  for (int moment = 1; moment <= 7; ++moment) {
    remove_documents();
    const auto run = start_month();
    std::this_thread::sleep_for(calculation * moment / 8);
    if (run->stop(SIGKILL)) {
      ++killed;
    } else {
      calculation /= 2;  // the machine has become faster
    }
    const auto found = documents();
    EXPECT_TRUE(std::includes(expected.begin(), expected.end(), found.begin(), found.end(),
                              [&](const auto& a, const auto& b) {
                                return std::stoi(a) < std::stoi(b) || (std::stoi(a) == std::stoi(b) && a < b);
                              }))
        << "killed at moment " << moment;
  }
  EXPECT_GT(killed, 2);
  EXPECT_EQ(quor({"month", "2008-01"}).status, 0);
  EXPECT_EQ(documents(), expected);
}

TEST_P(MonthProgramTest, TwoAtOnceEndWithEachDocumentOnce) {
  given_company(400);
  const auto one = start_month();
  const auto other = start_month();
  const Outcome first = one->finish(), second = other->finish();
  EXPECT_EQ(first.status + second.status, 0) << first.err << second.err;
  EXPECT_EQ(first.out, second.out);
  const auto both = documents();
  remove_documents();
  EXPECT_EQ(quor({"month", "2008-01"}).out, first.out);
  EXPECT_EQ(documents(), both);
}

TEST_P(MonthProgramTest, CtrlCStopsBetweenPeopleAndSaysWhatIsDone) {
  given_company(1300);
  const auto run = start_month();
  // Until the work has begun, Ctrl-C ends the program as any other: wait for the first thousand.
  for (int waits = 0; waits < 1500 && documents().empty(); ++waits) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  run->signal(SIGINT);
  const Outcome outcome = run->finish();
  const auto stored = documents().size();
  const std::string said = "Apskaičiuota žmonių: " + std::to_string(stored) + " iš ";
  EXPECT_NE(outcome.err.find(said), std::string::npos) << outcome.err;
  EXPECT_EQ(outcome.err.find("Nutraukta. ") == 0, outcome.status == 1);
}

TEST_P(MonthProgramTest, AMonthIsClosedWhenItIsOfTodayAndThenShownAsItWasPaid) {
  given_company(30);
  const auto said = [this](const std::vector<std::string>& words) {
    const Outcome run = quor(words);
    return std::to_string(run.status) + " " + run.err + run.out;
  };
  const std::string closing = "Mėnesio 2008.01 uždaryti negalima:\n";
  EXPECT_EQ(said({"month", "close", "2008-01"}),
            "1 " + closing +
                "mėnuo neapskaičiuotas\nquor: mėnuo neuždarytas; uždaryti, koks yra: --despite "
                "\"PRIEŽASTIS\"\n");
  EXPECT_EQ(quor({"preview", "salary", "2008-01"}).err, "2008.01: neapskaičiuotas\n");
  EXPECT_NE(quor({"month", "2008-01"}).err.find("; klaidų: 0; viršija ribą: "), std::string::npos);
  EXPECT_EQ(quor({"preview", "salary", "2008-01"}).err, "");

  const std::string rows = "id,guid,category_id,date_from,factor\n";
  const auto import = [&](const std::string& row, std::vector<std::string> words) {
    std::ofstream(folder_.path("k.csv")) << rows << row;
    words.insert(words.begin(), {"import", "category_rows", "k.csv"});
    return said(words);
  };
  ASSERT_EQ(import("900,nauja,1,2008-01-31,99\n", {}).substr(0, 1), "0");
  EXPECT_NE(said({"month", "close", "2008-01"}).find("dokumentų, kurie pasikeistų: "), std::string::npos);
  EXPECT_NE(quor({"preview", "salary", "2008-01"}).err.find("po skaičiavimo pakeista duomenų ("), std::string::npos);
  quor({"month", "2008-01"});
  EXPECT_EQ(said({"month", "close", "2008-01"}), "0 Mėnuo 2008.01 uždarytas.\n");

  std::vector<std::string> shown;
  const auto show = [&] {
    shown.clear();
    for (const char* kind : {"salary", "supplements"}) shown.push_back(quor({"preview", kind, "2008-01"}).out);
    return shown;
  };
  const auto paid = show();
  EXPECT_EQ(import("900,nauja,1,2008-01-31,98\n", {}),
            "1 k.csv:2: siekia uždarytą mėnesį 2008.01\nquor: neįrašyta nieko; klaidų: 1; įrašyti vis tiek: "
            "--into-closed\n");
  EXPECT_EQ(import("900,nauja,1,2008-01-31,98\n", {"--into-closed"}), "0 k.csv: naujų 0, pakeistų 1, nepakitusių 0.\n");
  EXPECT_EQ(show(), paid);

  EXPECT_EQ(quor({"month", "reopen", "2008-01"}).status, 2);
  EXPECT_EQ(quor({"month", "close", "2008-02", "--despite", " "}).status, 2);
  EXPECT_EQ(quor({"month", "2008-01", "--reason", "x"}).status, 2);
  EXPECT_EQ(said({"month", "reopen", "2008-01", "--reason", "klaida", "--user", "Ona"}),
            "0 Mėnuo 2008.01 vėl atvertas.\n");
  EXPECT_NE(show(), paid);
  EXPECT_EQ(said({"month", "close", "2008-01", "--despite", "skubu"}), "0 Mėnuo 2008.01 uždarytas.\n");
  const Outcome state = quor({"month", "state", "2008-01", "--format", "csv"});
  EXPECT_EQ(state.err.find("2008.01: uždarytas (konsolė, "), 0U);
  for (const char* part : {",konsolė,uždarytas,\r\n", ",Ona,atvertas,klaida", ",konsolė,uždarytas,skubu"}) {
    EXPECT_NE(state.out.find(part), std::string::npos) << part << state.out;
  }
}

}  // namespace
}  // namespace quor
