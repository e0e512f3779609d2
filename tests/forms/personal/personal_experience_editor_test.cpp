// The editor of an employee's length of service, acted on as a person does, against the real host.
#include "forms/personal/personal_experience_editor.h"

#include "tests/support/personal_company.h"

namespace velmora {
namespace {

using quor::FieldType;
using quor::outcome;
using quor::type_and_leave;
using quor::type_over;

constexpr char kExperience[] = "OfficeEmployeeExperience";

std::string inputs(const frmOfficeEmployeePersonalExperience& editor) {
  return date_text(editor.dtpDate.value()) + " " + editor.txtYears.text() + " " + editor.txtMonthes.text();
}
std::string result(const frmOfficeEmployeePersonalExperience& editor) {
  return editor.txtYears2.text() + " " + editor.txtMonthes2.text();
}

class PersonalService : public PersonalEditors {
 protected:
  std::unique_ptr<frmOfficeEmployeePersonalExperience> open_service() {
    company_.company().refresh();
    auto editor = std::make_unique<frmOfficeEmployeePersonalExperience>(application());
    editor->rsExperience = company_.rows(kExperience);
    editor->UserOIDR = "O04001001";
    editor->DatePreview = day("2008.05.01");
    editor->load();
    return editor;
  }
  std::string services() {
    return stored(company_.database(),
                  "SELECT employee_id, date_experience, experience_years, experience_months, row_version, changed_by"
                  " FROM experience ORDER BY employee_id",
                  "idiiit");
  }
};
ON_EVERY_DATABASE(PersonalService);

TEST_P(PersonalService, AServiceIsRecordedOnceAndReadAgain) {
  company_.given_service(company_.given_employee("Antroji"), day("2000.01.01"), 1, 1);
  auto editor = open_service();
  EXPECT_EQ(inputs(*editor), "2003.03.15 0 0");
  type_and_leave(editor->txtYears, "5");
  type_and_leave(editor->txtMonthes, "12");
  EXPECT_EQ(services(), "2;2000.01.01;1;1;1;Null") << "nothing is written before the button";

  company_.fail_statements();
  editor->cmdWrite.click();
  company_.heal();
  EXPECT_EQ(last_boxes(), Texts{"none, ok, Testas: Įrašymas neatliktas!\r\nryšys nutrūko"});
  editor->cmdWrite.click();
  EXPECT_EQ(last_boxes(),
            Texts{"none, ok, Testas: Įrašymas neatliktas!\r\nLaukas „stažo mėnesiai“: 12 – leidžiama nuo 0 "
                  "iki 11."});
  EXPECT_FALSE(editor->close_requested() || editor->rsExperience->has_changes());
  type_and_leave(editor->txtMonthes, "11");
  editor->cmdWrite.click();
  EXPECT_TRUE(editor->close_requested() && !editor->mCancel);
  EXPECT_EQ(editor->rsExperience->Filter(), "");
  EXPECT_EQ(walked(*editor->rsExperience, "UserID"), "2 1");
  EXPECT_EQ(services(), "1;2003.03.15;5;11;1;testuotoja | 2;2000.01.01;1;1;1;Null");

  editor = open_service();
  editor->dtpDate.pick(day("2004.02.29"));
  type_over(editor->txtYears, "");
  EXPECT_EQ(outcome([&] { return editor->cmdWrite.click(), true; }), "TypeMismatch") << "the box was not left";
  editor->txtYears.leave();
  editor->cmdWrite.click();
  EXPECT_EQ(services(), "1;2004.02.29;0;11;2;testuotoja | 2;2000.01.01;1;1;1;Null");
  editor = open_service();
  EXPECT_EQ(inputs(*editor), "2004.02.29 0 11");
  editor->cmdCancel.click();
  EXPECT_TRUE(editor->mCancel);
  editor = open_service();
  editor->close_box();
  EXPECT_FALSE(editor->mCancel);
}

TEST_P(PersonalService, ASaveOverSomebodyElsesChangeIsRefused) {
  const struct {
    bool recorded;
    const char *meanwhile, *refusal;
  } cases[] = {
      {true, "UPDATE experience SET experience_months = NULL, changed_by = 'Ona', changed_at = '10:00'",
       "Įrašą tuo metu pakeitė kitas vartotojas: Ona, 10:00."},
      {true, "DELETE FROM experience", "Įrašas panaikintas kito vartotojo."},
      {false,
       "INSERT INTO experience (id, employee_id, experience_years, row_version, changed_by, changed_at)"
       " VALUES (7, 1, 9, 1, 'Ona', '10:00')",
       "Darbuotojo Nr. 1 tarnybos stažą jau įrašė kitas vartotojas: Ona, 10:00."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.meanwhile);
    execute("DELETE FROM experience");
    if (c.recorded) company_.given_service(person_, day("2000.01.01"), 1, 1);
    company_.company().forget();
    const auto editor = open_service();
    execute(c.meanwhile);
    const std::string before = services();
    type_and_leave(editor->txtYears, "5");
    editor->cmdWrite.click();
    EXPECT_EQ(last_boxes(), Texts{std::string("none, ok, Testas: Įrašymas neatliktas!\r\n") + c.refusal});
    EXPECT_EQ(services(), before);
  }
}

TEST_P(PersonalService, ARecordedServiceThatIsNoneIsOpenedAndMended) {
  company_.given_service(person_, kNull, 40000, 3);
  const auto editor = open_service();
  EXPECT_EQ(inputs(*editor) + result(*editor), "2003.03.15 40000 3 ");
  EXPECT_EQ(outcome([&] { return editor->cmdWrite.click(), true; }), "Overflow");
  editor->txtYears.enter();
  editor->txtYears.select(5, 0);
  for (const char* left : {"4000", "400"}) {
    editor->txtYears.type_key(quor::TextBox::kBackspace);
    EXPECT_EQ(editor->txtYears.text(), left);
  }
  EXPECT_EQ(result(*editor), "405 5") << "from the first day of service, until another date is written";
  type_and_leave(editor->txtYears, "4");
  editor->cmdWrite.click();
  EXPECT_EQ(services(), "1;2003.03.15;4;3;2;testuotoja");
}

TEST_P(PersonalService, ARecordSetIsStoredWholeOrNotAtAll) {
  const std::int32_t second = company_.given_employee("Antroji"), third = company_.given_employee("Trečioji");
  company_.given_service(person_, day("2000.01.01"), 1, 1);
  company_.given_service(second, day("2000.01.01"), 2, 2);
  const auto rows = company_.rows(kExperience);
  rows->set_field("ExperienceYears", kNull);
  rows->MoveNext();
  rows->Delete();
  rows->AddNew();
  rows->set_field("UserID", 99);
  const auto bo = application().NewMainBO();
  const auto save = [&](const char* name) { return bo->SaveRecordset(name, *rows).ErrorText; };
  EXPECT_EQ(save("Experience"), "Duomenų „Experience“ čia įrašyti negalima.");
  EXPECT_EQ(save(kExperience), "Laukas „darbuotojas“ rodo į įrašą, kurio nėra: „99“.");
  rows->set_field("UserID", kNull);
  EXPECT_EQ(save(kExperience), "Neužpildytas laukas „darbuotojas“.");
  rows->set_field("UserID", third);
  company_.given_rights(company_.given_user("testuotoja"), "O0400100", "vcdp");
  EXPECT_EQ(save(kExperience), "Neturite teisės keisti darbuotojų tarnybos stažo.");
  for (const char* table : {"rights", "users"}) execute((std::string("DELETE FROM ") + table).c_str());
  company_.company().forget();

  const std::string before = services();
  std::uint64_t statement = 1;
  for (;; ++statement) {
    quor::fail_one(company_.database(), statement);
    const std::string text = save(kExperience);
    company_.heal();
    if (text.empty()) break;
    ASSERT_EQ(text, "ryšys nutrūko");
    ASSERT_EQ(services(), before) << statement;
    ASSERT_TRUE(rows->has_changes());
    ASSERT_LT(statement, 40U);
  }
  EXPECT_GT(statement, 10U);
  EXPECT_FALSE(rows->has_changes());
  EXPECT_EQ(services(), "1;2000.01.01;Null;1;2;testuotoja | 3;Null;Null;Null;1;testuotoja");
}

TEST(ServiceCalculator, GrowsByMonthBoundaries) {
  quor::TestCompany company;
  frmOfficeEmployeePersonalExperience editor(company.application());
  editor.load();
  const struct {
    const char *from, *years, *months, *to, *expected;
  } cases[] = {
      {"2007.03.15", "5", "11", "2007.04.02", "6 0"},  {"2008.05.01", "0", "0", "2008.03.01", "-1 10"},
      {"2008.01.31", "0", "0", "2008.02.01", "0 1"},   {"2008.01.01", "0", "0", "2008.01.31", "0 0"},
      {"2008.01.01", "0", "14", "2008.01.01", "1 2"},  {"2008.01.01", "", "7", "2008.01.01", "0 7"},
      {"2008.01.01", "0", "1", "2007.01.01", "-1 1"},  {"2008.01.01", "0", "0", "2007.01.01", "-1 0"},
      {"2008.01.01", "2,5", "0", "2008.01.01", "2 0"},  // the box is not left yet
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.from) + " " + c.years + " " + c.months + " " + c.to);
    editor.dtpDate.pick(day(c.from));
    editor.dtpDate2.pick(day(c.to));
    type_over(editor.txtYears, c.years);
    type_over(editor.txtMonthes, c.months);
    EXPECT_EQ(result(editor), c.expected);
  }
  editor.txtYears.leave();
  EXPECT_EQ(editor.txtYears2.text(), "3") << "formatting the box counts as a change";
}

TEST(ServiceCalculator, AnActBeyondSixteenBitsIsUndone) {
  quor::TestCompany company;
  frmOfficeEmployeePersonalExperience editor(company.application());
  editor.DatePreview = day("2008.01.31");
  editor.load();
  type_and_leave(editor.txtYears, "2730");
  type_over(editor.txtMonthes, "7");
  const auto state = [&] { return inputs(editor) + " " + date_text(editor.dtpDate2.value()) + " " + result(editor); };
  const std::string most = "2008.01.31 2730 7 2008.01.31 2730 7";
  EXPECT_EQ(state(), most);
  EXPECT_EQ(outcome([&] { return editor.dtpDate2.pick(day("2008.02.01")), true; }), "Overflow");
  EXPECT_EQ(state(), most);
  EXPECT_EQ(outcome([&] { return editor.txtMonthes.type_key(U'0'), true; }), "Overflow");
  EXPECT_EQ(state(), most);
  EXPECT_EQ(editor.txtMonthes.selection_start(), 1U);
  type_over(editor.txtMonthes, "6");
  editor.dtpDate2.pick(day("2008.02.01"));
  EXPECT_EQ(state(), "2008.01.31 2730 6 2008.02.01 2730 7");
}

TEST(ServiceCalculator, WithoutAnEmployeeOrARecordSetTheEditorOnlyCalculates) {
  quor::TestCompany company;
  company.given_employee("Pirmoji");
  const auto rows = quor::record_set({{"UserID", FieldType::kInt32},
                                      {"DateExperience", FieldType::kDate},
                                      {"ExperienceYears", FieldType::kInt16},
                                      {"ExperienceMonthes", FieldType::kInt16}},
                                     {{1, kNull, 3, kNull}, {9, day("2001.01.01"), 4, 5}});
  const struct {
    const char* key;
    bool with_rows;
    const char* shown;
    bool saves;
  } cases[] = {
      {"O0400100", true, "2008.01.31 0 0", false},   {"", true, "2008.01.31 0 0", false},
      {"O0400100x", true, "2008.01.31 0 0", false},  {"O04001001x", true, "2008.01.31 0 0", false},
      {"O04001001", false, "2008.01.31 0 0", false}, {"O04001001", true, "2008.01.31 3 0", true},
      {"O04001009", true, "2001.01.01 4 5", false},  // gone, but its record is still here
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.key);
    rows->Filter("UserID = 5");  // what an opener may have left
    frmOfficeEmployeePersonalExperience editor(company.application());
    editor.rsExperience = c.with_rows ? rows : nullptr;
    editor.UserOIDR = c.key;
    editor.load();
    EXPECT_EQ(inputs(editor), c.shown);
    EXPECT_EQ(editor.cmdWrite.visible() && editor.cmdWrite.enabled(), c.saves);
    EXPECT_EQ(editor.cmdCancel.caption(), c.saves ? "Atšaukti" : "Uždaryti");
    type_over(editor.txtYears2, "7");
    EXPECT_NE(editor.txtYears2.text(), "7");
    editor.cmdCancel.click();
    editor.unload();
  }
  EXPECT_EQ(walked(*rows, "UserID"), "1 9");
}

}  // namespace
}  // namespace velmora
