// The grid of a month's worked time: typed, pasted, filled and written on a company of the real services.
#include "host/editors/worked_time_editor.h"

#include <gtest/gtest.h>

#include "host/payroll/calculated_month.h"
#include "platform/data/error.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

const Month kJanuary = Month::parse("2008-01");

class WorkedTimeTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    company_.given_time_codes();  // 1 FD, 3 L, 5 PV, 2 VD
    for (const char* name : {"Ada", "Benas", "Cilė"}) {
      const auto department = company_.given_department(name);
      people_.push_back(company_.given_employee(name, department));
      company_.given_position({.employee = people_.back()});
    }
    touch();
  }
  void touch() { Transaction(company_.database()).commit(); }
  std::unique_ptr<WorkedTimeEditor> open() {
    touch();
    auto editor = std::make_unique<WorkedTimeEditor>(company_.application(), kJanuary);
    editor->load();
    return editor;
  }
  static std::string cells(const Grid& grid) {
    std::string text;
    for (std::size_t row = 0; row < grid.row_count(); ++row) {
      text += (row > 0 ? " | " : "") + grid.row_head(row);
      for (std::size_t column = 0; column < grid.columns().size(); ++column) {
        text += ";" + grid.text(row, column) + (grid.colour(row, column) == CellColour::kRed ? "!" : "");
      }
    }
    return text;
  }
  // "employee code day hours" of each stored row.
  std::string stored() {
    return rows_text(
        *company_.database().read("SELECT employee_id, time_code_id, day, hours FROM worked_time WHERE month = :p0"
                                  " ORDER BY employee_id, time_code_id, COALESCE(day, 0)",
                                  {{"User", FieldType::kInt32},
                                   {"Code", FieldType::kInt32},
                                   {"Day", FieldType::kDate},
                                   {"H", FieldType::kDouble}},
                                  {kJanuary.first_day()}));
  }

  TestCompany company_{GetParam()};
  std::vector<std::int32_t> people_;
};
ON_EVERY_DATABASE(WorkedTimeTest);

TEST_P(WorkedTimeTest, IsPastedFilledTakenBackAndWrittenWhole) {
  company_.given_time(people_[2], 5, 8, day("2008.01.15"));
  auto editor = open();
  Grid& grid = editor->grdTime;
  EXPECT_EQ(editor->lblState.caption(), "Mėnesio norma: 184 val.");
  EXPECT_EQ(cells(grid), "Ada;;;;; | Benas;;;;; | Cilė;;;8;;8");
  editor->cmdFillAll.click();
  grid.select({0, 1, 0, 1});
  EXPECT_EQ(grid.paste("10\t\n5,5\t8\r\n"), "");
  EXPECT_EQ(cells(grid), "Ada;184;10;;;194! | Benas;184;5,5;8;;197,5! | Cilė;184;;8;;192!");
  EXPECT_TRUE(editor->has_unsaved_changes());
  EXPECT_EQ(grid.paste("7\nx"), "Benas, L: „x“ – valandos turi būti skaičius.");
  EXPECT_EQ(grid.paste("744,5"), "Ada, L: „744,5“ – leidžiama nuo 0 iki 744 valandų.");
  EXPECT_EQ(grid.enter(2, 2, "9"), "Cilė, PV: čia nerašoma.") << "entered by days";
  grid.select({2, 0, 2, 0});
  EXPECT_EQ(grid.erase(), "");
  grid.undo();
  grid.undo();
  grid.redo();
  EXPECT_EQ(cells(grid), "Ada;184;10;;;194! | Benas;184;5,5;8;;197,5! | Cilė;184;;8;;192!");
  editor->cmdWrite.click();
  EXPECT_FALSE(editor->has_unsaved_changes());
  EXPECT_EQ(stored(),
            "1;1;Null;184 | 1;3;Null;10 | 2;1;Null;184 | 2;3;Null;5,5 | 2;5;Null;8 | 3;1;Null;184 | 3;5;2008.01.15;8");
  grid.select({0, 1, 1, 2});
  EXPECT_EQ(grid.erase(), "");
  EXPECT_EQ(grid.enter(0, 0, "100"), "");
  editor->cmdWrite.click();
  EXPECT_EQ(stored(), "1;1;Null;100 | 2;1;Null;184 | 3;1;Null;184 | 3;5;2008.01.15;8");
}

TEST_P(WorkedTimeTest, ACodeIsShownByDaysAndByDepartment) {
  company_.given_time(people_[0], 1, 160);
  auto editor = open();
  editor->chcShape.choose(1);  // FD
  Grid& grid = editor->grdTime;
  ASSERT_EQ(grid.columns().size(), 33U);
  EXPECT_EQ(grid.columns()[0].caption + grid.columns()[4].caption, "1\nAn5\nŠ");
  EXPECT_EQ(grid.text(0, 31) + " " + grid.text(0, 32), "160 160");
  EXPECT_EQ(grid.enter(0, 0, "8"), "Ada, 1\nAn: čia nerašoma.") << "entered for the month";
  EXPECT_EQ(grid.enter(1, 0, "25"), "Benas, 1\nAn: „25“ – leidžiama nuo 0 iki 24 valandų.");
  grid.select({1, 0, 2, 1});
  EXPECT_EQ(grid.paste("8"), "") << "fills the range";
  editor->chcDepartment.choose(2);
  EXPECT_EQ(cells(grid).substr(0, 11), "Benas;8;8;;");
  EXPECT_EQ(editor->lblTotals.caption(), "Žmonių: 1; valandų: 16; viršija normą: 0.");
  editor->cmdWrite.click();
  EXPECT_EQ(stored(), "1;1;Null;160 | 2;1;2008.01.01;8 | 2;1;2008.01.02;8 | 3;1;2008.01.01;8 | 3;1;2008.01.02;8")
      << "whoever is not shown, too";
}

TEST_P(WorkedTimeTest, IsRefusedWholeWhenOthersWereFasterOrTheMonthIsClosed) {
  company_.given_time(people_[0], 1, 160);
  auto editor = open();
  EXPECT_EQ(editor->grdTime.enter(0, 0, "150") + editor->grdTime.enter(1, 0, "150"), "");
  company_.database().execute("UPDATE worked_time SET hours = 170");
  touch();
  EXPECT_EQ(error_text([&] { editor->cmdWrite.click(); }),
            "Neįrašyta: darbuotojo „Ada“ laiką tuo metu pakeitė kitas vartotojas.");
  EXPECT_TRUE(editor->has_unsaved_changes()) << "nothing typed is lost";
  EXPECT_EQ(stored(), "1;1;Null;170");
  company_.database().execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (:p0, 'Ona', '')",
                              {kJanuary.first_day()});
  EXPECT_NE(error_text([&] { editor->cmdWrite.click(); }).find("uždarytas"), std::string::npos);
  EXPECT_NE(error_text([&] { delete_worked_time(company_.application(), editor->subject()); }).find("uždarytas"),
            std::string::npos);
  editor = open();
  EXPECT_EQ(editor->grdTime.enter(1, 0, "1"), "Čia tik žiūrima.");
  EXPECT_FALSE(editor->cmdWrite.enabled() || editor->cmdFillAll.enabled());
  EXPECT_EQ(stored(), "1;1;Null;170");
}

TEST_P(WorkedTimeTest, AFailingStatementLeavesNothingHalfWritten) {
  company_.given_time(people_[0], 1, 160);
  company_.given_time(people_[1], 2, 5);
  touch();
  const std::string before = stored();
  const std::vector<TimeChange> changes = {
      {{people_[0], 1, 0}, 160, 150.0}, {{people_[1], 2, 0}, 5, {}}, {{people_[2], 1, 3}, {}, 8.0}};
  for (std::uint64_t n = 1;; ++n) {
    company_.fail_statements(n);
    const std::string fault = error_text([&] { write_month_time(company_.application(), kJanuary, changes); });
    company_.heal();
    company_.database().reconnect();
    if (stored() != before) break;  // committed, whatever was told behind it
    ASSERT_NE(fault, "") << "statement " << n;
    ASSERT_LT(n, 50U);
  }
  EXPECT_EQ(stored(), "1;1;Null;150 | 3;1;2008.01.03;8");
}

}  // namespace
}  // namespace quor
