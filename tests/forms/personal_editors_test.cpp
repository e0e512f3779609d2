// The editors of an employee's length of service and extra charges, acted on as a person does, against the real engine
// and host.
#include <gtest/gtest.h>
#include <map>

#include "engine/salary_engine.h"
#include "forms/personal/extra_charges_editor.h"
#include "forms/personal/personal_experience_editor.h"
#include "host/business/personal_charge_editor.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::choose_on;
using quor::day;
using quor::FieldType;
using quor::kNull;
using quor::outcome;
using quor::PersonalChargeEditor;
using quor::shown;
using quor::type_and_leave;
using quor::type_over;
using quor::Variant;
using Texts = std::vector<std::string>;

constexpr char kExperience[] = "OfficeEmployeeExperience";

// What stands in the store; `types` has a letter for each column: i(nteger), n(umber), d(ate), t(ext).
std::string stored(quor::Database& database, const std::string& sql, std::string_view types) {
  const std::map<char, FieldType> type_of = {
      {'i', FieldType::kInt32}, {'n', FieldType::kDouble}, {'d', FieldType::kDate}, {'t', FieldType::kText}};
  std::vector<quor::FieldInfo> fields;
  for (const char type : types) fields.push_back({std::to_string(fields.size()), type_of.at(type)});
  return rows_text(*database.read(sql, fields));
}

std::string inputs(const frmOfficeEmployeePersonalExperience& editor) {
  return date_text(editor.dtpDate.value()) + " " + editor.txtYears.text() + " " + editor.txtMonthes.text();
}
std::string result(const frmOfficeEmployeePersonalExperience& editor) {
  return editor.txtYears2.text() + " " + editor.txtMonthes2.text();
}

class PersonalEditors : public testing::TestWithParam<quor::Backend> {
 protected:
  PersonalEditors() { execute("UPDATE employees SET usr_acc_date = :p0", {day("2003.03.15")}); }

  quor::TestApplication& application() { return company_.application(); }
  void execute(const char* sql, const std::vector<Variant>& values = {}) { company_.database().execute(sql, values); }
  Texts last_boxes() {
    const Texts all = application().boxes();
    return {all.begin() + static_cast<std::ptrdiff_t>(std::exchange(boxes_seen_, all.size())), all.end()};
  }

  // ---- the length of service
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

  // ---- the charges
  // From, to, sum, percentage, what it is tied to, salary code, comment; its GUID is "G1" and so on.
  void given_charge(std::vector<Variant> values) {
    const std::int32_t id = company_.database().reserve_ids("extra_charges");
    values.insert(values.end(), {id, "G" + std::to_string(id), person_});
    execute(
        "INSERT INTO extra_charges (date_from, date_to, sum_a, percentage, salary_extra_oid, salary_code_id, comment,"
        " id, guid, employee_id, row_version) VALUES (:p0, :p1, :p2, :p3, :p4, :p5, :p6, :p7, :p8, :p9, 1)",
        values);
  }
  std::unique_ptr<frmOfficeEmployeeExtraCharges> open_charges(const char* key = "O04001001") {
    auto editor = std::make_unique<frmOfficeEmployeeExtraCharges>(application());
    editor->QuorObjectUIO = std::make_shared<UIO0402000>(application());
    editor->SalaryPersonalOIDR = key;
    editor->mDate = quor::Date::from_serial(day("2008.01.31").serial() + 0.5);  // at noon
    editor->lblPreview.set_caption("Eilutės pavardė");
    editor->load();
    return editor;
  }
  void in_the_dialog(std::function<void(PersonalChargeEditor&)> acts) {
    application().on_modal(
        [acts = std::move(acts)](quor::Form& form) { acts(dynamic_cast<PersonalChargeEditor&>(form)); });
  }
  std::string charges() {
    return stored(company_.database(),
                  "SELECT date_from, date_to, sum_a, percentage, salary_extra_oid, salary_code_id, comment, row_version"
                  " FROM extra_charges ORDER BY id",
                  "ddnntiti");
  }

  quor::TestCompany company_{GetParam()};
  std::int32_t person_ = company_.given_employee("Pirmoji");
  std::size_t boxes_seen_ = 0;
};
ON_EVERY_DATABASE(PersonalEditors);

// ---- the length of service

TEST_P(PersonalEditors, AServiceIsRecordedOnceAndReadAgain) {
  company_.given_service(company_.given_employee("Antroji"), day("2000.01.01"), 1, 1);
  auto editor = open_service();
  EXPECT_EQ(inputs(*editor), "2003.03.15 0 0");
  type_and_leave(editor->txtYears, "5");
  type_and_leave(editor->txtMonthes, "14");
  EXPECT_EQ(services(), "2;2000.01.01;1;1;1;Null") << "nothing is written before the button";

  company_.fail_statements();
  editor->cmdWrite.click();
  company_.heal();
  EXPECT_EQ(last_boxes(), Texts{"none, ok, Testas: Įrašymas neatliktas!\r\nryšys nutrūko"});
  EXPECT_FALSE(editor->close_requested() || editor->rsExperience->has_changes());
  editor->cmdWrite.click();
  EXPECT_TRUE(editor->close_requested() && !editor->mCancel);
  EXPECT_EQ(editor->rsExperience->Filter(), "");
  EXPECT_EQ(walked(*editor->rsExperience, "UserID"), "2 1");
  EXPECT_EQ(services(), "1;2003.03.15;5;14;1;testuotoja | 2;2000.01.01;1;1;1;Null");

  editor = open_service();
  editor->dtpDate.pick(day("2004.02.29"));
  type_over(editor->txtYears, "");
  EXPECT_EQ(outcome([&] { return editor->cmdWrite.click(), true; }), "TypeMismatch") << "the box was not left";
  editor->txtYears.leave();
  editor->cmdWrite.click();
  EXPECT_EQ(services(), "1;2004.02.29;0;14;2;testuotoja | 2;2000.01.01;1;1;1;Null");
  editor = open_service();
  EXPECT_EQ(inputs(*editor), "2004.02.29 0 14");
  editor->cmdCancel.click();
  EXPECT_TRUE(editor->mCancel);
  editor = open_service();
  editor->close_box();
  EXPECT_FALSE(editor->mCancel);
}

TEST_P(PersonalEditors, ASaveOverSomebodyElsesChangeIsRefused) {
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

TEST_P(PersonalEditors, ARecordedServiceThatIsNoneIsOpenedAndMended) {
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

TEST_P(PersonalEditors, ARecordSetIsStoredWholeOrNotAtAll) {
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
  EXPECT_EQ(save(kExperience), "Laukas „UserID“ rodo į įrašą, kurio nėra: „99“.");
  rows->set_field("UserID", kNull);
  EXPECT_EQ(save(kExperience), "Neužpildytas laukas „UserID“.");
  rows->set_field("UserID", third);
  company_.given_rights(company_.given_user("testuotoja"), "O0400100", "vcdp");
  EXPECT_EQ(save(kExperience), "Neturite teisės keisti darbuotojų tarnybos stažo.");
  for (const char* table : {"rights", "users"}) execute((std::string("DELETE FROM ") + table).c_str());
  company_.company().forget();

  const std::string before = services();
  std::uint64_t statement = 1;
  for (;; ++statement) {
    const auto failing = company_.database().statements() + statement;
    company_.database().set_fault([failing](std::uint64_t number) {
      if (number == failing) throw quor::StoreError(quor::StoreFault::kFailed, "ryšys nutrūko");
    });
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

TEST(PersonalService, GrowsByMonthBoundaries) {
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

TEST(PersonalService, AnActBeyondSixteenBitsIsUndone) {
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

TEST(PersonalService, WithoutAnEmployeeOrARecordSetTheEditorOnlyCalculates) {
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

// ---- the charges

TEST_P(PersonalEditors, TheListShowsASumOrAPercentageAndGreysWhatIsNotInForce) {
  company_.given_tariffs();
  company_.given_service(person_, day("2002.01.01"), 0, 0);
  execute("INSERT INTO salary_codes (id, code, name) VALUES (3, '201', 'Priedas')");
  const Variant first = day("2008.01.31"), before = day("2008.01.30"), after = day("2008.02.01");
  given_charge({kNull, kNull, 150.0, 10.0, "", 3, "Pastaba"});
  given_charge({day("1990.01.01"), day("2999.12.31"), 0.0, 10.0, kNull, kNull, kNull});
  given_charge({first, first, kNull, 1.0, "O0402000", kNull, kNull});
  given_charge({after, kNull, -1.0, 1.0, "O04020007", kNull, kNull});
  given_charge({kNull, before, 0.0, 2.5, "O040200", kNull, kNull});
  given_charge({day("1990.01.02"), day("2999.12.30"), 1234.5, kNull, "O0402000", kNull, kNull});
  const std::string expected =
      ";;201  Priedas;150,00;;Pastaba | ;;;;10%; | 2008.01.31;2008.01.31;;;5%; | 2008.02.01;;;;5%; | "
      ";2008.01.30;;;2,5%; | 1990.01.02;2999.12.30;;1234,50;;";
  auto editor = open_charges();
  EXPECT_EQ(shown(editor->lvwExtraCharges), expected);
  EXPECT_EQ(editor->lblPreview.caption(), "Pirmoji");
  EXPECT_EQ(editor->lvwExtraCharges.tag(2), "G3");
  std::string grey;
  for (std::size_t cell = 0; cell < 36; ++cell) {
    if (editor->lvwExtraCharges.colour(cell / 6, cell % 6) == quor::CellColour::kGreyText)
      grey += std::to_string(cell / 6);
  }
  EXPECT_EQ(grey, "333333444444") << "six cells each of the two rows that are not in force";
  const auto engine = editor->QuorObjectUIO;
  editor->unload();
  EXPECT_EQ(engine.use_count(), 1) << "everything is released";

  application().refuse("GetOfficeEmployeeExperience", "nėra ryšio");
  editor = open_charges();
  EXPECT_EQ(editor->lvwExtraCharges.text(2, 4), "0%") << "the engine failed";

  EXPECT_EQ(open_charges("O04001001#GUID")->lblPreview.caption(), "Pirmoji");
  for (const char* key : {"O04001009", "O0400100", "O0400100x", ""}) {
    editor = open_charges(key);
    EXPECT_EQ(editor->lblPreview.caption(), "Eilutės pavardė");
    for (quor::MenuItem* item :
         {&editor->mnuNewExtraCharge, &editor->mnuEditExtraCharge, &editor->mnuDeleteExtraCharge}) {
      choose_on(editor->lvwExtraCharges, {}, *item);
    }
    editor->lvwExtraCharges.double_click({});
    EXPECT_TRUE(editor->mCancel);
  }
}

TEST_P(PersonalEditors, AChargeIsEnteredChangedAndDeleted) {
  execute("INSERT INTO salary_codes (id, code, name) VALUES (3, '201', 'Priedas')");
  auto editor = open_charges();
  quor::ListView& list = editor->lvwExtraCharges;
  in_the_dialog([](PersonalChargeEditor& dialog) { dialog.cmdCancel.click(); });
  choose_on(list, {}, editor->mnuNewExtraCharge);
  EXPECT_TRUE(editor->mCancel && !editor->mnuEditExtraCharge.enabled() && !editor->mnuDeleteExtraCharge.enabled());
  in_the_dialog([](PersonalChargeEditor& dialog) {
    type_over(dialog.txtDateFrom, "2008.01.15");
    dialog.lvwKind.select(PersonalChargeEditor::kSum);
    type_over(dialog.txtPercentage, "7");  // disabled
    type_over(dialog.txtSum, "150.5");
    dialog.lvwSalaryCodes.select(1);
    type_over(dialog.txtComment, "Už kalbą");
    dialog.cmdWrite.click();
  });
  choose_on(list, {}, editor->mnuNewExtraCharge);
  EXPECT_EQ(shown(list), "2008.01.15;;201  Priedas;150,50;;Už kalbą");
  EXPECT_FALSE(editor->mCancel);
  EXPECT_EQ(charges(), "2008.01.15;Null;150,5;Null;Null;3;Už kalbą;1");

  editor->mCancel = true;
  in_the_dialog([](PersonalChargeEditor& dialog) {
    EXPECT_EQ(dialog.txtSum.text() + dialog.lvwSalaryCodes.selected_tag(), "150,53");
    dialog.lvwKind.select(PersonalChargeEditor::kLengthOfService);
    dialog.lvwSalaryCodes.select(0);
    type_over(dialog.txtComment, "");
    dialog.cmdWrite.click();
  });
  list.double_click(0);
  EXPECT_FALSE(editor->mCancel);
  EXPECT_EQ(charges(), "2008.01.15;Null;Null;Null;O0402000;Null;Null;2");

  editor->mCancel = true;
  application().answer(quor::BoxAnswer::kNo);
  choose_on(list, 0, editor->mnuDeleteExtraCharge);
  EXPECT_TRUE(editor->mCancel);
  EXPECT_EQ(list.row_count(), 1U);
  application().answer(quor::BoxAnswer::kYes);
  choose_on(list, 0, editor->mnuDeleteExtraCharge);
  EXPECT_EQ(last_boxes(), Texts(2, "question, yesno, Testas: Ar tikrai norite panaikinti?"));
  EXPECT_FALSE(editor->mCancel);
  EXPECT_EQ(shown(list) + charges(), "");
}

TEST_P(PersonalEditors, WhatOthersAndRightsForbidIsToldAndLeavesTheList) {
  given_charge({kNull, kNull, 150.0, kNull, kNull, kNull, kNull});
  const auto editor = open_charges();
  quor::ListView& list = editor->lvwExtraCharges;
  const auto remove = [&] {
    application().answer(quor::BoxAnswer::kYes);
    choose_on(list, 0, editor->mnuDeleteExtraCharge);
    EXPECT_EQ(list.row_count(), 1U);
    EXPECT_TRUE(editor->mCancel);
    return last_boxes().back();
  };
  in_the_dialog([&](PersonalChargeEditor& dialog) {
    execute("UPDATE extra_charges SET row_version = 2, changed_by = 'Ona', changed_at = '10:00'");
    type_over(dialog.txtSum, "160");
    dialog.cmdWrite.click();
    EXPECT_FALSE(dialog.close_requested());
  });
  list.double_click(0);
  EXPECT_EQ(last_boxes(), Texts{"exclamation, ok, Testas: Įrašymas neatliktas!\r\nĮrašą tuo metu pakeitė kitas "
                                "vartotojas: Ona, 10:00."});
  EXPECT_EQ(charges(), "Null;Null;150;Null;Null;Null;Null;2");

  execute(
      "INSERT INTO documents (id, guid, employee_id, month, check_code, check_message)"
      " VALUES (1, 'D', 1, 39448, 0, '')");
  execute(
      "INSERT INTO salary_rows (id, guid, document_id, sum_type, sum_a, personal_extra_charge_id)"
      " VALUES (1, 'S', 1, 1, 150, 1)");
  execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, '', '')");
  EXPECT_EQ(remove(),
            "exclamation, ok, Testas: Įrašo „O04001101“ panaikinti negalima: jis nurodytas uždarytų mėnesių "
            "dokumentuose (1).");
  company_.given_rights(company_.given_user("testuotoja"), "O0400100", "vcpw");
  EXPECT_EQ(remove(), "exclamation, ok, Testas: Neturite teisės naikinti darbuotojų priedų.");
  execute("DELETE FROM extra_charges");
  const std::string gone = "exclamation, ok, Testas: Priedo nebėra: jį panaikino kitas vartotojas.";
  EXPECT_EQ(remove(), gone);
  list.double_click(0);
  EXPECT_EQ(last_boxes(), Texts{gone});
  const auto employee = application().GetQuorObjectUIO("O04001001");
  EXPECT_EQ(employee->Save(0, "").ErrorText,
            "Čia darbuotojų kortelių keisti negalima: tokius įrašus tvarko kita programos dalis.");
}

TEST(PersonalCharge, TellsWhatItCannotTakeAndStoresWhatItShows) {
  quor::TestCompany company;
  company.given_employee("Pirmoji");
  const auto employee = company.application().GetQuorObjectUIO("O04001001");
  using enum PersonalChargeEditor::Kind;
  const struct {
    const char *from, *to;
    PersonalChargeEditor::Kind kind;
    const char *amount, *expected;  // the refusal, or what is stored
  } cases[] = {
      {"2008.02.30", "", kSum, "1",
       "Data „2008.02.30“ netinkama: rašykite metus, mėnesį ir dieną, pavyzdžiui, 2008.01.31."},
      {"2008.02.02", "2008.02.01", kSum, "1", "Pabaiga „2008.02.01“ ankstesnė už pradžią „2008.02.02“."},
      {"2008-2-01", "2008.02.01", kSum, "0,01", "2008.02.01;2008.02.01;0,01;Null;Null"},
      {"", " ", kSum, "1 500,25", "Null;Null;1500,25;Null;Null"},
      {"", "", kSum, "", "Neįrašyta priedo suma."},
      {"", "", kSum, "dešimt", "Suma „dešimt“ nėra skaičius."},
      {"", "", kSum, "0", "Suma „0“ turi būti didesnė už nulį."},
      {"", "", kSum, "-5", "Suma „-5“ turi būti didesnė už nulį."},
      {"", "", kSum, "0,015", "Suma „0,015“ nurodyta tiksliau negu centais."},
      {"", "", kPercentage, " ", "Neįrašytas priedo procentas."},
      {"", "", kPercentage, "5%", "Procentas „5%“ nėra skaičius."},
      {"", "", kPercentage, "-0,5", "Procentas „-0,5“ turi būti didesnis už nulį."},
      {"", "", kPercentage, "0,5", "Null;Null;Null;0,5;Null"},
      {"", "", kLengthOfService, "", "Null;Null;Null;Null;O0402000"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.expected);
    std::string told;
    company.application().on_box([&](const quor::ShownBox& box) { told = box.text; });
    company.application().on_modal([&](quor::Form& form) {
      auto& dialog = dynamic_cast<PersonalChargeEditor&>(form);
      type_over(dialog.txtDateFrom, c.from);
      type_over(dialog.txtDateTo, c.to);
      dialog.lvwKind.select(c.kind);
      type_over(c.kind == kSum ? dialog.txtSum : dialog.txtPercentage, c.amount);
      dialog.cmdWrite.click();
    });
    const quor::MethodResult result = employee->Methods("PersonalExtraCharge", {""});
    const std::string kept =
        stored(company.database(), "SELECT date_from, date_to, sum_a, percentage, salary_extra_oid FROM extra_charges",
               "ddnnt");
    EXPECT_EQ(told + kept, c.expected);
    EXPECT_EQ(result.Value.to_bool(), told.empty());
    company.database().execute("DELETE FROM extra_charges");
  }
}

}  // namespace
}  // namespace velmora
