// The editor of an employee's extra charges and the host's dialog of one charge, acted on as a person does, against the
// real engine and host.
#include "forms/personal/extra_charges_editor.h"

#include "engine/salary_engine.h"
#include "host/editors/personal_charge_editor.h"
#include "tests/support/personal_company.h"

namespace velmora {
namespace {

using quor::choose_on;
using quor::PersonalChargeEditor;
using quor::shown;
using quor::type_over;

class PersonalCharges : public PersonalEditors {
 protected:
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
};
ON_EVERY_DATABASE(PersonalCharges);

TEST_P(PersonalCharges, TheListShowsASumOrAPercentageAndGreysWhatIsNotInForce) {
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

TEST_P(PersonalCharges, AChargeIsEnteredChangedAndDeleted) {
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

TEST_P(PersonalCharges, WhatOthersAndRightsForbidIsToldAndLeavesTheList) {
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

  company_.given_document(person_);
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
       "Galioja nuo: „2008.02.30“ nėra data: rašykite metus, mėnesį ir dieną, pavyzdžiui, 2008.01.31."},
      {"2008.02.02", "2008.02.01", kSum, "1", "Pabaiga „2008.02.01“ ankstesnė už pradžią „2008.02.02“."},
      {"2008-2-01", "2008.02.01", kSum, "0,01", "2008.02.01;2008.02.01;0,01;Null;Null"},
      {"", " ", kSum, "1 500,25", "Null;Null;1500,25;Null;Null"},
      {"", "", kSum, "", "Suma: neįrašyta."},
      {"", "", kSum, "dešimt", "Suma: „dešimt“ nėra skaičius."},
      {"", "", kSum, "0", "Suma: „0“ – leidžiama daugiau kaip 0 iki 1000000."},
      {"", "", kSum, "-5", "Suma: „-5“ – leidžiama daugiau kaip 0 iki 1000000."},
      {"", "", kSum, "0,015", "Suma: „0,015“ nurodyta tiksliau negu centais."},
      {"", "", kPercentage, " ", "Procentas: neįrašyta."},
      {"", "", kPercentage, "5%", "Procentas: „5%“ nėra skaičius."},
      {"", "", kPercentage, "-0,5", "Procentas: „-0,5“ – leidžiama daugiau kaip 0 iki 1000."},
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
