#include "host/report/report_text.h"

#include <gtest/gtest.h>

#include "host/console/department_lists.h"
#include "host/report/column_widths.h"
#include "platform/data/error.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class ListReportTest : public testing::Test {
 protected:
  ListReportTest() {
    report_.AddHeading(" Sąrašas");
    report_.AddHeading("");
    report_.AddHeading(" ");
    report_.AddColumn("Nr", "Eil. Nr.", 0.8, CellAlignment::kRight);
    report_.AddColumn("Name", "Pavardė, vardas", 6, CellAlignment::kLeft);
    report_.AddColumn("Sum", "Priedų suma", 2, CellAlignment::kRight);
  }
  void add_line(const char* number, const char* name, const char* sum, CellColour colour = CellColour::kNormal) {
    report_.AddLine();
    report_.SetCell("Sum", sum, colour);
    report_.SetCell("Nr", number, CellColour::kNormal);
    report_.SetCell("Name", name, CellColour::kNormal);
  }
  const ReportData& shown() {
    report_.Show();
    return *shown_;
  }

  std::shared_ptr<const ReportData> shown_;
  ReportToFill report_{"ĮSTAIGA", [this](std::shared_ptr<const ReportData> data) { shown_ = std::move(data); }};
};

TEST_F(ListReportTest, ATableMarksWhatIsRed) {
  add_line("1", "Šešelgytė, \"Jr\"", "12,50", CellColour::kRed);
  add_line(" ", " ", "7,00");
  add_line("12", "Ona", "1260,00");
  EXPECT_EQ(table_text(shown(), {.wrapped_heads = true}),
            "ĮSTAIGA\n"
            "Sąrašas\n"
            "\n"
            "Eil.                    Priedų \n"
            " Nr.  Pavardė, vardas     suma \n"
            "----  ---------------  ------- \n"
            "   1  Šešelgytė, \"Jr\"    12,50!\n"
            "                          7,00 \n"
            "  12  Ona              1260,00 \n");
  const std::string coloured = table_text(shown(), {.colours = true});
  EXPECT_NE(coloured.find("\"Jr\"        \033[31m12,50\033[0m!\n"), std::string::npos) << coloured;
  EXPECT_EQ(coloured.find('\033', coloured.find("\033[0m") + 1), std::string::npos) << coloured;
  EXPECT_EQ(csv_text(shown()),
            "Eil. Nr.,\"Pavardė, vardas\",Priedų suma\r\n"
            "1,\"Šešelgytė, \"\"Jr\"\"\",\"12,50\"\r\n,,\"7,00\"\r\n12,Ona,\"1260,00\"\r\n");
  EXPECT_EQ(json_text(shown()),
            R"({"title":"ĮSTAIGA","headings":[" Sąrašas"],"columns":[{"key":"Nr","caption":"Eil. Nr."},)"
            R"({"key":"Name","caption":"Pavardė, vardas"},{"key":"Sum","caption":"Priedų suma"}],)"
            R"("lines":[["1","Šešelgytė, \"Jr\"","12,50"],["","","7,00"],["12","Ona","1260,00"]],)"
            R"("red":[{"line":0,"key":"Sum"}]})"
            "\n");
}

TEST_F(ListReportTest, ItIsFilledInOrderAndWhatWasShownStays) {
  const auto set = [&](const char* key) {
    return outcome([&] { return report_.SetCell(key, "x", CellColour::kNormal), true; });
  };
  EXPECT_EQ(set("Sum"), "NoCurrentRow");
  EXPECT_EQ(set("sum"), "NoSuchField");
  EXPECT_EQ(outcome([&] { return report_.AddColumn("Sum", "", 0, CellAlignment::kLeft), true; }), "AlreadyOpen");
  EXPECT_EQ(csv_lines(shown()), "");
  const auto empty = shown_;
  add_line("1", "Ona", "2");
  EXPECT_EQ(csv_lines(shown()), "1,Ona,2\r\n");
  EXPECT_EQ(csv_lines(*empty), "");
  EXPECT_EQ(outcome([&] { return report_.AddColumn("Late", "", 0, CellAlignment::kLeft), true; }), "AlreadyOpen");
}

TEST(ColumnWidths, AreScaledTogetherButNotBelowWhatCutsANumber) {
  const struct {
    const char* name;
    std::vector<ColumnNeed> needs;
    std::vector<double> widths;
  } cases[] = {
      {"as wanted", {{4, 1}, {6, 1}}, {4, 6}},
      {"scaled down together", {{8, 1}, {12, 1}}, {4, 6}},
      {"a least one takes from who has more", {{8, 5}, {12, 1}}, {5, 5}},
      {"a least one where there is room", {{1, 3}, {4, 1}}, {3, 4}},
      {"least ones scaled down", {{8, 8}, {12, 12}}, {4, 6}},
      {"none", {}, {}},
  };
  for (const auto& c : cases) EXPECT_EQ(fitted_widths(c.needs, 10), c.widths) << c.name;
}

// Departments 1 (with 2 and, below it, 3) and 4, the last one empty; `too_many` are those whose list cannot hold all.
TEST(DepartmentLists, DivideWhatDoesNotFit) {
  TestCompany company;
  const auto first = company.given_department("A");
  const auto below = company.given_department("B", first);
  company.given_employee("Ona", company.given_department("C", below));
  company.given_department("D");
  const auto lists = [&](const std::vector<std::int32_t>& too_many) {
    return outcome([&] {
      std::string titles;
      const auto fits = [&](std::int32_t id) { return std::count(too_many.begin(), too_many.end(), id) == 0; };
      for (const auto& list : lists_by_department(company.company(), fits, [&](std::int32_t id) {
             return std::make_shared<const ReportData>(
                 ReportData{.title = std::to_string(id), .lines = id == 4 ? 0U : 1U});
           })) {
        titles += list->title + " ";
      }
      return titles;
    });
  };
  EXPECT_EQ(lists({}), "1 ");
  EXPECT_EQ(lists({1, 2}), "3 ");
  EXPECT_EQ(lists({1, 2, 3}), "TooMany") << "there is nothing below it";
  company.given_employee("Jonas", below);
  EXPECT_EQ(lists({1}), "2 ");
  EXPECT_EQ(lists({1, 2}), "TooMany") << "its own people would be left out";
}

}  // namespace
}  // namespace quor
