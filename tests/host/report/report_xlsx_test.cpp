// Workbooks, unpacked by a program that knows nothing of how they were made.
#include "host/report/report_xlsx.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "tests/support/company_place.h"

namespace quor {
namespace {

Reports small_report() {
  auto report = std::make_shared<ReportData>();
  report->title = "ĮSTAIGA";
  report->headings = {" Sąrašas: 2008/01"};
  report->columns = {{.key = "N", .caption = "Pavardė", .width = 6},
                     {.key = "S", .caption = "Suma", .alignment = CellAlignment::kRight}};
  const std::pair<const char*, const char*> lines[] = {
      {"=1+1 & <b>", "1 260,05"}, {"12", "007"}, {"2008.01.31", "-3"}, {"", "1234567890123456"}, {"", "29%"}};
  for (const auto& [name, sum] : lines) {
    report->cells.push_back({name});
    report->cells.push_back({sum, *sum == '-' ? CellColour::kRed : CellColour::kNormal});
    ++report->lines;
  }
  return {report, report};
}

TEST(ReportXlsx, CellsAreNumbersDatesAndTextsUnderHeadsThatStay) {
  const std::string bytes = report_xlsx(small_report(), Date::from_ymd(2008, 2, 5));
  const TemporaryFolder folder;
  std::ofstream(folder.path("b.xlsx"), std::ios::binary) << bytes;
  const std::string unpack = "cd " + folder.path("") + " && " VELMORA_CMAKE " -E tar xf b.xlsx";
  ASSERT_EQ(std::system(unpack.c_str()), 0);
  const auto part = [&](const char* name) {
    std::stringstream text;
    text << std::ifstream(folder.path(name)).rdbuf();
    return text.str();
  };
  const struct {
    const char* file;
    const char* holds;
  } cases[] = {
      {"xl/worksheets/sheet1.xml", "\"><v>1260.05</v>"},  // two decimals
      {"xl/worksheets/sheet1.xml", "\"><v>39478</v>"},    // a day
      {"xl/worksheets/sheet1.xml", "<v>-3</v>"},
      {"xl/worksheets/sheet1.xml", "topLeftCell=\"A5\" activePane=\"bottomLeft\" state=\"frozen\""},
      {"xl/sharedStrings.xml", "<t>=1+1 &amp; &lt;b&gt;</t>"},  // a text, no formula
      {"xl/sharedStrings.xml", "<t>12</t>"},                    // of a column of texts
      {"xl/sharedStrings.xml", "<t>007</t>"},
      {"xl/sharedStrings.xml", "<t>1234567890123456</t>"},  // more than a number holds
      {"xl/sharedStrings.xml", "<t>ĮSTAIGA</t>"},
      {"xl/styles.xml", "<b/><sz val=\"11\"/><color rgb=\"FFC00000\"/>"},
      {"xl/styles.xml", "formatCode=\"yyyy.mm.dd\""},
      {"xl/styles.xml", "formatCode=\"#,##0.00\""},
      {"xl/worksheets/sheet1.xml", "<v>0.29</v>"},
      {"xl/styles.xml", "formatCode=\"0%\""},
      {"xl/workbook.xml", "name=\"Sąrašas  2008 01\""},
      {"xl/workbook.xml", "name=\"Sąrašas  2008 01 2\""},
      {"docProps/core.xml", "2008-02-05T00:00:00Z</dcterms:created>"},
  };
  for (const auto& c : cases) {
    EXPECT_NE(part(c.file).find(c.holds), std::string::npos) << c.holds << "\n" << part(c.file);
  }
  EXPECT_EQ(report_xlsx(small_report(), Date::from_ymd(2008, 2, 5)), bytes);
}

TEST(ReportXlsx, WhatNoSheetTakesIsRefused) {
  auto report = std::make_shared<ReportData>();
  report->columns = {{.key = "N", .caption = "Pavardė"}};
  report->cells = {{std::string(32768, 'a')}};
  report->lines = 1;
  try {
    report_xlsx({report}, Date::from_ymd(2008, 2, 5));
    FAIL();
  } catch (const std::runtime_error& refused) {
    EXPECT_STREQ(refused.what(), "XLSX nesukurtas: langelio tekstas ilgesnis nei 32767 ženklai.");
  }
}

}  // namespace
}  // namespace quor
