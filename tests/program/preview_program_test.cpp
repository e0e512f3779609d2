// `quor preview` and `quor print`, as tables, for programs and on paper.
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/running.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

using Words = std::vector<std::string>;

class PreviewProgramTest : public testing::Test {
 protected:
  Outcome quor(Words words) {
    words.insert(words.end(), {"--today", "2008.02.05"});
    return run_quor(folder_.path(""), words);
  }

  // Two people with the pay of 1260 and supplements of 10 % and 23,81 % of it; the limit is 10 %.
  void given_month() {
    TestCompany company(folder_.path("sample.quor"));
    company.given_time_codes();
    const auto tariff = company.given_constant("MMA_VT", {{"2005.01.01", 130.0}});
    company.given_settings({.from = "2005.01.01", .month_tariff = tariff, .extra_limit = 10.0, .total_limit = 70.0});
    const auto category =
        company.given_category("A lygis, 13", {{"2004.01.01", 5.0}, {"2006.01.01", 9.0}, {"2007.01.01", 9.7}});
    company.given_category("B lygis", {{"2005.01.01", 4.0}});
    const auto top = company.given_department("Ūkio skyrius");
    const auto department = company.given_department("Poskyris", top);
    const std::pair<const char*, double> people[] = {{"Čepaitė Ąžuolė", 126.0}, {"Žilinas Jonas", 300.0}};
    for (const auto& [name, sum] : people) {
      const auto person = company.given_employee(name, name[0] == 'J' ? top : department);
      company.given_position({.employee = person, .category = category});
      company.given_charge(person, day("2008.01.01"), day("2008.01.31"), sum);
    }
    ASSERT_EQ(quor({"month", "2008-01"}).status, 0);
  }
  // The text of a PDF's pages, each as it lies, behind its size and number of pages.
  std::string pdf(const std::string& file) {
    std::string text;
    for (const char* command : {"pdfinfo ", "pdftotext -layout "}) {
      const std::string line = command + folder_.path(file) + (text.empty() ? "" : " -");
      std::FILE* pipe = popen(line.c_str(), "r");
      char part[4096];
      for (std::size_t size = 1; size > 0; text.append(part, size)) size = fread(part, 1, sizeof part, pipe);
      EXPECT_EQ(pclose(pipe), 0) << line;
    }
    return text;
  }
  static void expect_parts(const std::string& text, const Words& parts) {
    for (const std::string& part : parts) EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
  }

  TemporaryFolder folder_;
};

TEST_F(PreviewProgramTest, TheSalaryPreviewSaysWhatExceedsALimit) {
  given_month();
  const Outcome table = quor({"preview", "salary", "2008-01"});
  EXPECT_EQ(table.err, "");
  expect_parts(table.out,
               {"Valstybės tarnautojų sąrašas\n2008.01\n\n", "\n   1   Čepaitė Ąžuolė  A lygis, 13",
                "1260,00  126,00   10,00 ", "\n   2!  Žilinas Jonas   A lygis, 13", "1260,00  300,00!  23,81! "});
  EXPECT_EQ(table.out.find('\033'), std::string::npos) << "colours are for a terminal";
  const Outcome csv = quor({"preview", "salary", "2008-01", "--format", "csv"});
  expect_parts(csv.out,
               {"Eil. Nr.,\"Pavardė, vardas\",", ",2008.01 darbo užmokestis,Priedų suma,% (iki 10%),",
                "\r\n2,Žilinas Jonas,\"A lygis, 13\",\"9,70\",\"130,00\",1260,\"1260,00\",\"300,00\",\"23,81\","
                ",,\"300,00\",\"23,81\"\r\n"});
  const Outcome json = quor({"preview", "salary", "2008-01", "--format", "json"});
  expect_parts(json.out, {R"("red":[{"line":1,"key":"Nr"},{"line":1,"key":"ExtraCharge"})"});
}

TEST_F(PreviewProgramTest, WithoutAScreenTheWindowsGiveWayToTheTable) {
  given_month();
  const Outcome shown = quor({"desktop"});
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.err, "quor: nėra ekrano langams, tad rodoma darbo užmokesčio peržiūra.\n");
  expect_parts(shown.out, {"Valstybės tarnautojų sąrašas\n2008.01\n\n", "Čepaitė Ąžuolė"});
  ASSERT_EQ(quor({"init", "--company", "b.quor"}).status, 0);
  expect_parts(quor({"desktop", "--company", "b.quor"}).err, {"nė vienas mėnuo dar neapskaičiuotas"});
}

TEST_F(PreviewProgramTest, AScreenThatCannotBeReachedIsTold) {
  const Outcome shown = run_quor(folder_.path(""), {"desktop"}, "nėra:7");
  EXPECT_EQ(shown.status, 1);
  EXPECT_EQ(shown.err, "quor: ekranas „nėra:7“ nepasiekiamas, langų parodyti negalima\n");
}

TEST_F(PreviewProgramTest, SupplementsOfADepartment) {
  given_month();
  const Outcome whole = quor({"preview", "supplements", "2008-01", "--department", "1"});
  expect_parts(whole.out, {"2008.01\nŪkio skyrius\n", " 2  Žilinas Jonas ", "300,00\n"});
  EXPECT_EQ(quor({"preview", "supplements", "2007-12", "--department", "2"}).out.find("300,00"), std::string::npos);
}

TEST_F(PreviewProgramTest, PaperHasHeadsAndNumbersOnEveryPage) {
  given_month();
  EXPECT_EQ(quor({"preview", "salary", "2008-01", "--format", "pdf", "--output", "p.pdf"}).err, "");
  expect_parts(pdf("p.pdf"), {"Pages:           1\n", "842 x 595 pts (A4)", "Valstybės tarnautojų sąrašas",
                              "Čepaitė Ąžuolė", "300,00!", "23,81!", "Atspausdinta 2008.02.05", "Puslapis 1 iš 1"});
  ASSERT_EQ(quor({"init", "--employees", "150", "--company", "b.quor"}).status, 0);
  EXPECT_EQ(
      quor({"preview", "supplements", "2008-01", "--format", "pdf", "--output", "s.pdf", "--company", "b.quor"}).status,
      0);
  const std::string pages = pdf("s.pdf");
  expect_parts(pages, {"Pages:           4\n", "595 x 842 pts (A4)", "Pavyzdžių savivaldybės administracija"});
  const std::string second = pages.substr(pages.find("Puslapis 1 iš "));
  expect_parts(second.substr(0, second.find("Puslapis 2 iš ")), {"Pavardė, vardas", "Tarnybos"});
}

TEST_F(PreviewProgramTest, AWorkbookIsWrittenOfEachKindOfList) {
  given_month();
  const Words calls[] = {{"preview", "salary", "2008-01"}, {"print", "categories"}, {"month", "2008-01"}};
  for (Words call : calls) {
    call.insert(call.end(), {"--format", "xlsx", "--output", "b.xlsx"});
    EXPECT_EQ(quor(call).status, 0) << call.front();
    std::ifstream file(folder_.path("b.xlsx"), std::ios::binary);
    char start[2] = {};
    EXPECT_TRUE(file.read(start, 2) && start[0] == 'P' && start[1] == 'K') << call.front();
    std::remove(folder_.path("b.xlsx").c_str());
  }
}

TEST_F(PreviewProgramTest, EachCategoryIsPrintedWithItsLatestFactor) {
  given_month();
  EXPECT_EQ(quor({"print", "categories"}).out,
            "VALSTYBĖS TARNAUTOJŲ PAREIGYBIŲ KATEGORIJOS\n\n"
            "               Pareiginių\n"
            "Pareigybių           algų\n"
            "kategorijos  koeficientai\n"
            "-----------  ------------\n"
            "A lygis, 13           9,7\n"
            "B lygis                 4\n");
  const Outcome books = quor({"print", "books", "--plugin", VELMORA_PLUGIN, "--plugin", VELMORA_SECOND_PLUGIN});
  EXPECT_EQ(books.out, "Knygų sąrašas\n\n") << books.err;
}

TEST_F(PreviewProgramTest, BadCallsSayWhatIsOffAndWriteNothing) {
  given_month();
  const std::string before = folder_.contents();
  const struct {
    Words words;
    int status;
    const char* text;
  } cases[] = {
      {{"preview", "pay", "2008-01"}, 2, "„pay“: yra salary, supplements"},
      {{"preview", "salary", "2008-13"}, 2, "„2008-13“"},
      {{"preview", "salary"}, 2, "MĖNUO"},
      {{"preview", "salary", "2008-01", "--format", "pdf"}, 2, "--output"},
      {{"month", "2008-01", "--format", "xlsx"}, 2, "XLSX rašomas į failą"},
      {{"preview", "salary", "2008-01", "--format", "xls"}, 2, "yra table, csv, csv-semicolon, json, pdf"},
      {{"get", "Departments", "--format", "pdf", "--output", "x"}, 2, "yra table, csv, csv-semicolon, json\n"},
      {{"preview", "salary", "2008-01", "--department", "99", "--output", "x"}, 1, "Nėra padalinio, kurio ID yra 99"},
      {{"print", "months"}, 2, "„months“: yra categories"},
  };
  for (const auto& c : cases) {
    const Outcome run = quor(c.words);
    EXPECT_EQ(run.status, c.status) << run.err;
    EXPECT_NE(run.err.find(c.text), std::string::npos) << run.err << " says " << c.text;
    EXPECT_EQ(run.out, "");
  }
  EXPECT_EQ(folder_.contents(), before);
}

TEST_F(PreviewProgramTest, ABoxThatTellsOfAFailureFailsTheCommand) {
  given_month();
  {
    const auto database = Database::open(folder_.path("sample.quor"));
    Transaction transaction(*database, Writes::kOther);
    database->execute("DROP TABLE extra_charges");
    transaction.commit();
  }
  const Outcome run = quor({"preview", "supplements", "2008-01"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  expect_parts(run.err, {"[exclamation] ", "\nquor: Sąrašas nesudarytas.\n"});
}

}  // namespace
}  // namespace quor
