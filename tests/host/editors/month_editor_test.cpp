// The window of a month, acted on as a person would, on a company whose January and February can be calculated.
#include "host/editors/month_editor.h"

#include <gtest/gtest.h>

#include "frame/contract/host_types.h"
#include "host/company/month_keys.h"
#include "host/editors/reason_dialog.h"
#include "platform/data/error.h"
#include "tests/support/acting.h"
#include "tests/support/outcome.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class MonthEditorTest : public testing::TestWithParam<Backend> {
 protected:
  void SetUp() override {
    application().load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.given_time_codes();
    const auto category = company_.given_category("A lygis", {{"2005.01.01", 9.7}});  // 1260 a month at 130
    const auto staff = company_.given_department("Ūkis"), branch = company_.given_department("Skyrius", staff);
    const auto person = [&](const char* name, std::int32_t department, const char* from, const Variant& to = kNull) {
      const auto employee = company_.given_employee(name, department);
      company_.given_position({.employee = employee, .category = category, .from = from, .to = to, .norm = name});
      return employee;
    };
    ada_ = person("Ada", staff, "2005.01.01");
    benas_ = person("Benas", branch, "2005.01.01", day("2008.01.31"));
    cilė_ = person("Cilė", branch, "2008.02.01");
    company_.database().execute(
        "UPDATE settings SET extra_charge_percentage = 10, surcharge_percentage = 20, total_charge_percentage = 25");
    touch();
  }
  TestApplication& application() { return company_.application(); }
  void touch() { Transaction(company_.database()).commit(); }
  void give_ada_a_charge(double sum) {
    company_.given_charge(ada_, kNull, kNull, sum);
    touch();
  }
  std::shared_ptr<MonthEditor> open(const char* month) {
    auto editor = std::dynamic_pointer_cast<MonthEditor>(
        month_editor(application(), key_of_month(kMonthType, Month::parse(month))));
    editor->load();
    return editor;
  }
  // The names shown; "!" behind a red one.
  static std::string names(const ListView& list) {
    std::string text;
    for (std::size_t row = 0; row < list.row_count(); ++row) {
      text += (row > 0 ? " " : "") + list.text(row) + (list.colour(row) == CellColour::kRed ? "!" : "");
    }
    return text;
  }
  // The line without the time of the last calculation, which is the clock's.
  static std::string state(const MonthEditor& editor) {
    std::string text = editor.lblState.caption();
    const std::size_t from = text.find(" (visi skaičiuoti "), to = text.rfind(", ");
    return from == std::string::npos ? text : text.substr(0, from) + text.substr(to, text.size() - 1 - to);
  }
  static std::string line(const ListView& list, std::size_t row) {
    std::string text;
    for (std::size_t i = 0; i < list.columns().size(); ++i) text += (i > 0 ? ";" : "") + list.text(row, i);
    return text;
  }

  TestCompany company_{GetParam()};
  std::int32_t ada_ = 0, benas_ = 0, cilė_ = 0;
};
ON_EVERY_DATABASE(MonthEditorTest);

TEST_P(MonthEditorTest, CalculatesAllADepartmentOrTheChosenAndShowsWhatIsWrong) {
  give_ada_a_charge(200);
  auto editor = open("2008-01");
  EXPECT_EQ(editor->lblState.caption(), "2008.01: neapskaičiuotas");
  EXPECT_EQ(names(editor->lvwPeople), "");
  editor->chcDepartment.select_tag("O00016042");
  editor->chcDepartment.on_change();
  editor->cmdCalculateDepartment.click();
  EXPECT_EQ(names(editor->lvwPeople), "Benas") << "the branch alone";
  editor->chcDepartment.choose(0);
  EXPECT_FALSE(editor->cmdCalculateDepartment.enabled());
  editor->cmdCalculate.click();
  EXPECT_EQ(state(*editor), "2008.01: apskaičiuotas pagal dabartinius duomenis, testuotoja");
  EXPECT_EQ(editor->lblSummary.caption(),
            "Apskaičiuota žmonių: 2 iš 2; pakeista dokumentų: 1; viršija ribą: 1; klaidų: 0.");
  EXPECT_EQ(names(editor->lvwPeople), "Ada! Benas");
  EXPECT_EQ(line(editor->lvwPeople, 1), "Benas;Skyrius;1260,00;;;1260,00;315,00;");
  const struct {
    MonthShow show;
    const char* expected;
  } shows[] = {{MonthShow::kFaults, ""}, {MonthShow::kOverLimit, "Ada!"}, {MonthShow::kChanged, "Ada!"}};
  for (const auto& c : shows) {
    editor->chcShow.choose(static_cast<std::size_t>(c.show));
    EXPECT_EQ(names(editor->lvwPeople), c.expected);
  }
  EXPECT_EQ(shown(editor->lvwDepartments),
            "Skyrius;1;1260,00;;;1260,00;315,00; | Ūkis;1;1260,00;200,00;;1460,00;;1 | Iš "
            "viso;2;2520,00;200,00;;2720,00;315,00;1");
  EXPECT_EQ(editor->chtFund.data().series[1].values[0], std::optional(200.0));

  // The chosen alone: whoever else changed stays out of date, and whoever has left by now stays in his document.
  company_.database().execute("UPDATE positions SET share = 0.5");
  company_.database().execute("UPDATE positions SET date_to = :p0 WHERE employee_id = :p1",
                              {day("2007.12.31"), benas_});
  company_.database().execute("DELETE FROM extra_charges");
  touch();
  editor = open("2008-01");
  EXPECT_EQ(state(*editor), "2008.01: po skaičiavimo pakeista duomenų (2 žmonių), testuotoja");
  editor->cmdCalculateChosen.click();
  EXPECT_EQ(application().shown_boxes().back().text,
            "Nepažymėtas nė vienas žmogus: pažymėkite langelius prie pavardžių.");
  editor->lvwPeople.check(0);
  editor->cmdCalculateChosen.click();
  EXPECT_EQ(shown(editor->lvwPeople), "Ada;Ūkis;630,00;;;630,00;157,50; | Benas;Skyrius;1260,00;;;1260,00;315,00;");
  EXPECT_EQ(state(*editor), "2008.01: po skaičiavimo pakeista duomenų (1 žmogaus), testuotoja");
}

TEST_P(MonthEditorTest, ComparesWithTheMonthBefore) {
  open("2008-01")->cmdCalculate.click();
  give_ada_a_charge(0.1);
  const auto editor = open("2008-02");
  editor->cmdCalculate.click();
  EXPECT_EQ(shown(editor->lvwDifferences),
            "Ada;pasikeitė;1260,00;1260,10;;0,10;;0,10 | Benas;nebėra;1260,00;;-1260,00;;;-1260,00 | "
            "Cilė;naujas;;1260,00;1260,00;;;1260,00 | Iš viso;;2520,00;2520,10;;0,10;;0,10");
  std::string months;
  for (const MonthPay& each : pay_of_person(application(), ada_)) {
    months += each.month.text() + " " + money_text(each.pay.total()) + "; ";
  }
  EXPECT_EQ(months, "2008.01 1260,00; 2008.02 1260,10; ");
  EXPECT_EQ(pay_of_person(application(), cilė_).size(), 1U);
}

TEST_P(MonthEditorTest, IsClosedAfterChecksOrWithAReasonAndOpenedAgain) {
  auto editor = open("2008-01");
  std::string objections;
  std::string reason;
  application().on_modal([&](Form& form) {
    auto& dialog = dynamic_cast<ReasonDialog&>(form);
    objections = shown(dialog.lvwObjections);
    if (reason.empty()) {
      dialog.cmdOK.click();
      return dialog.cmdCancel.click();
    }
    type_over(dialog.txtReason, reason);
    dialog.cmdOK.click();
  });
  editor->cmdClose.click();
  EXPECT_EQ(objections, "Mėnesio 2008.01 uždaryti negalima: | mėnuo neapskaičiuotas");
  EXPECT_EQ(application().shown_boxes().back().text, "Priežastis: neįrašyta.");
  EXPECT_TRUE(editor->cmdCalculate.enabled()) << "still open";

  editor->cmdCalculate.click();
  editor->cmdClose.click();
  EXPECT_FALSE(editor->cmdCalculate.enabled() || editor->cmdClose.enabled());
  EXPECT_TRUE(editor->cmdReopen.enabled());
  EXPECT_EQ(error_text([&] { delete_month(application(), editor->subject()); }).find("Mėnuo 2008.01 uždarytas"), 0U);
  reason = "klaida";
  editor->cmdReopen.click();
  EXPECT_TRUE(editor->cmdCalculate.enabled());
  ASSERT_EQ(editor->lvwHistory.row_count(), 2U);
  EXPECT_EQ(editor->lvwHistory.text(1, 1) + " " + editor->lvwHistory.text(1, 3), "atvertas klaida");
  delete_month(application(), editor->subject());
  EXPECT_EQ(open("2008-01")->lblState.caption(), "2008.01: neapskaičiuotas");
}

}  // namespace
}  // namespace quor
