// The card of an employee and the dialogs that it opens, with the real salary engine.
#include "host/editors/employee_card.h"

#include <gtest/gtest.h>

#include "frame/contract/host_types.h"
#include "host/editors/employment_end.h"
#include "host/editors/position_editor.h"
#include "host/editors/service_editor.h"
#include "host/payroll/person_positions.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class EmployeeCardTest : public testing::TestWithParam<Backend> {
 protected:
  EmployeeCardTest() {
    application_.load_plugin(VELMORA_PLUGIN);
    company_.given_tariffs();
    company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2008.02.01", 10.1}});
    company_.given_department("Buhalterija");
    company_.given_department("Skyrius", 1);
  }
  std::shared_ptr<EmployeeCard> open(const std::string& key) {
    auto card = std::dynamic_pointer_cast<EmployeeCard>(open_employee_card(application_, key));
    card->load();
    return card;
  }
  // The next dialog, acted on.
  template <typename Dialog>
  void next(const std::function<void(Dialog&)>& act) {
    application_.on_modal([act](Form& form) { act(dynamic_cast<Dialog&>(form)); });
  }
  std::string stored(const char* sql, const std::vector<FieldInfo>& fields) {
    return rows_text(*company_.database().read(sql, fields));
  }
  std::string positions() {
    return stored(
        "SELECT employee_id, constant_type_id, category_id, share, date_from, date_to FROM positions ORDER BY id",
        {{"e", FieldType::kInt32},
         {"c", FieldType::kInt32},
         {"k", FieldType::kInt32},
         {"s", FieldType::kDouble},
         {"f", FieldType::kDate},
         {"t", FieldType::kDate}});
  }
  std::string last_box() {
    std::string text = application_.shown_boxes().empty() ? "" : application_.shown_boxes().back().text;
    std::erase(text, '\r');
    return text;
  }

  TestCompany company_{GetParam()};
  TestApplication application_{company_.company(),
                               {.title = "Testas",
                                .user = "testuotoja",
                                .today = day("2008.01.31"),
                                .edit_charge = edit_personal_charge,
                                .host_types = host_editors(),
                                .pick = "O04022001"}};
};
ON_EVERY_DATABASE(EmployeeCardTest);

TEST_P(EmployeeCardTest, ANewPersonIsWrittenAndGetsAPositionWithoutAnyID) {
  const auto card = open(kEmployeeType);
  EXPECT_FALSE(card->lvwPositions.enabled() || card->cmdService.enabled());
  type_over(card->txtServiceBegan, "rytoj");
  card->cmdWrite.click();
  EXPECT_EQ(last_box(),
            "Pavardė, vardas: neįrašyta.\nPadalinys: nepasirinktas.\n"
            "Tarnybos pradžia: „rytoj“ nėra data: rašykite metus, mėnesį ir dieną, pavyzdžiui, 2008.01.31.");
  EXPECT_TRUE(card->has_unsaved_changes());
  type_over(card->txtName, "Čepienė Ona");
  type_over(card->txtServiceBegan, "2008.01.02");
  ASSERT_EQ(card->chcDepartment.items()[1].text, "Skyrius (Buhalterija)");
  card->chcDepartment.choose(1);
  card->cmdWrite.click();
  EXPECT_EQ(company_.get("Employees", "None"), "1;2;Čepienė Ona;2008.01.02");
  EXPECT_FALSE(card->has_unsaved_changes());
  EXPECT_EQ(card->subject(), "O04001001");

  next<PositionEditor>([&](PositionEditor& dialog) {
    dialog.cmdWrite.click();
    EXPECT_EQ(last_box(), "Nenurodyta pareigybių kategoriją!\nGalioja nuo: neįrašyta.");
    dialog.cmdChoose.click();
    EXPECT_EQ(dialog.txtCategory.text() + ";" + dialog.txtFactor.text(), "A lygis;9,7");
    EXPECT_EQ(dialog.txtMonthSalary.text(), "1260,00") << "by the base tariff of the settings";
    type_over(dialog.txtDateFrom, "2008.02.01");
    EXPECT_EQ(dialog.txtMonthSalary.text(), "1315,00") << "by the factor of that day";
    type_over(dialog.txtShare, "0,5");
    EXPECT_EQ(dialog.txtMonthSalary.text(), "657,50");
    EXPECT_TRUE(dialog.has_unsaved_changes());
    dialog.cmdWrite.click();
  });
  choose_on(card->lvwPositions, {}, card->mnuNewPosition);
  EXPECT_EQ(positions(), "1;1;1;0,5;2008.02.01;Null");
  EXPECT_EQ(stored("SELECT COUNT(*) FROM positions WHERE contract_guid <> norm_guid AND contract_guid <> ''",
                   {{"n", FieldType::kInt32}}),
            "1");
  next<PersonalChargeEditor>([](PersonalChargeEditor& dialog) {
    dialog.lvwKind.select(PersonalChargeEditor::kSum);
    type_over(dialog.txtSum, "77");
    dialog.cmdWrite.click();
  });
  card->cmdNewCharge.click();
  EXPECT_EQ(shown(card->lvwCharges), ";;;77,00;;");
  EXPECT_EQ(shown(card->lvwPositions), "A lygis;9,7;Konstanta MMA_VT;130;0,5;2008.02.01;");
  EXPECT_EQ(card->lvwPositions.colour(0), CellColour::kGreyText) << "it does not hold yet";
}

TEST_P(EmployeeCardTest, AChargeTellsWhatTheLimitsLeaveWhileItIsTyped) {
  company_.database().execute("UPDATE settings SET extra_charge_percentage = 10");
  const auto person = company_.given_employee("Pirmoji");
  company_.given_position({.employee = person, .category = 1});
  company_.given_time_codes();
  company_.given_charge(person, day("2006.05.01"), kNull, 26.0);
  const auto card = open("O04001001");
  const std::string free = "2008.01: pagrindas 1260,00, priedams dar galima ";
  next<PersonalChargeEditor>([&](PersonalChargeEditor& dialog) {
    dialog.lvwKind.select(PersonalChargeEditor::kSum);
    type_over(dialog.txtSum, "100");
    EXPECT_EQ(dialog.lblRoom.caption(), free + "100,00 (7,94 %)");
    type_over(dialog.txtSum, "100,01");
    EXPECT_EQ(dialog.lblRoom.caption(), free + "100,00 (7,94 %) – šis priedas 100,01 ribą viršytų 0,01!");
    dialog.lvwKind.select(PersonalChargeEditor::kPercentage);
    type_over(dialog.txtPercentage, "8");
    EXPECT_EQ(dialog.lblRoom.caption(), free + "100,00 (7,94 %) – šis priedas 100,80 ribą viršytų 0,80!");
  });
  card->cmdNewCharge.click();
  next<PersonalChargeEditor>([&](PersonalChargeEditor& dialog) {
    EXPECT_EQ(dialog.lblRoom.caption(), free + "126,00 (10,00 %)") << "without the charge itself";
  });
  card->lvwCharges.double_click(0);
}

TEST_P(EmployeeCardTest, APositionIsChangedCopiedEndedAndDeleted) {
  const auto person = company_.given_employee("Pirmoji");
  company_.given_position({.employee = person, .category = 1, .constant_type = 1, .to = day("2008.01.15")});
  company_.given_charge(person, kNull, kNull, 5.0);
  const auto card = open("O04001001");
  card->lvwPositions.select(0);
  next<PositionEditor>([](PositionEditor& dialog) {
    EXPECT_EQ(dialog.txtDateFrom.text(), "2008.01.16");
    dialog.cmdWrite.click();
  });
  card->cmdCopyPosition.click();
  next<PositionEditor>([](PositionEditor& dialog) {
    type_over(dialog.txtShare, "0,25");
    dialog.cmdWrite.click();
  });
  card->lvwPositions.double_click(0);
  EXPECT_EQ(positions(), "1;1;1;0,25;2005.01.01;2008.01.15 | 1;1;1;1;2008.01.16;Null");

  const auto end = [&](const char* on) {
    next<EmploymentEnd>([&](EmploymentEnd& dialog) {
      type_over(dialog.txtDay, on);
      dialog.cmdEnd.click();
    });
    card->cmdEnd.click();
    return last_box();
  };
  EXPECT_EQ(end("2008.01.10"),
            "Darbo pabaiga „2008.01.10“: vėliau, 2008.01.16, prasideda kita pareigybė. Pirmiausia ją pakeiskite arba "
            "panaikinkite.");
  company_.database().execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, 'O', '')");
  EXPECT_EQ(end("2008.01.20"), "Pakeitimas siekia uždarytą mėnesį 2008.01.") << "not agreed to";
  EXPECT_EQ(positions(), "1;1;1;0,25;2005.01.01;2008.01.15 | 1;1;1;1;2008.01.16;Null");
  for (int twice = 0; twice < 2; ++twice) application_.answer(BoxAnswer::kYes);
  end("2008.01.20");
  EXPECT_EQ(positions(), "1;1;1;0,25;2005.01.01;2008.01.15 | 1;1;1;1;2008.01.16;2008.01.20");
  EXPECT_EQ(shown(card->lvwCharges), ";2008.01.20;;5,00;;") << "with the charges";
  EXPECT_EQ(end("2008.01.20"), "Darbo pabaiga „2008.01.20“: po šios dienos nė viena pareigybė nebegalioja.");

  application_.answer(BoxAnswer::kYes);
  application_.answer(BoxAnswer::kYes);
  choose_on(card->lvwPositions, 1, card->mnuDeletePosition);
  EXPECT_EQ(positions(), "1;1;1;0,25;2005.01.01;2008.01.15");
}

TEST_P(EmployeeCardTest, AnEndThatFailsAtAnyStatementEndsNothing) {
  const auto person = company_.given_employee("Pirmoji");
  for (const char* contract : {"K1", "K2"}) company_.given_position({.employee = person, .contract = contract});
  company_.given_charge(person, kNull, kNull, 5.0);
  const auto open_ends = [&] {
    return stored(
        "SELECT (SELECT COUNT(*) FROM positions WHERE date_to IS NULL) + (SELECT COUNT(*) FROM extra_charges"
        " WHERE date_to IS NULL)",
        {{"n", FieldType::kInt32}});
  };
  for (std::uint64_t statement = 1;; ++statement) {
    ASSERT_LT(statement, 40U);
    fail_one(company_.database(), statement);
    try {
      const RunningOn ended = end_employment(application_, person, day("2008.01.20"), true);
      company_.heal();
      EXPECT_EQ(ended.positions + ended.charges, 3);
      break;
    } catch (const StoreError&) {
      company_.heal();
      ASSERT_EQ(open_ends(), "3") << statement;
    }
  }
  EXPECT_EQ(open_ends(), "0");
}

TEST_P(EmployeeCardTest, ServiceWorkedTimeAndPayStandOnThePages) {
  const auto person = company_.given_employee("Pirmoji");
  company_.given_time_codes();
  company_.given_time(person, 1, 160);
  company_.given_time(person, 2, 4.5, day("2008.01.05"));
  company_.given_document(person);
  Database& database = company_.database();
  database.execute("UPDATE documents SET check_code = 4, check_message = 'Viršyta riba'");
  database.execute(
      "INSERT INTO time_rows (id, guid, document_id, salary_extra_oid, time_code_id, hours) VALUES (1, 'T', 1, 'O', 1, "
      "160)");
  database.execute(
      "INSERT INTO salary_rows (id, guid, document_id, time_row_guid, sum_type, sum_a, percentage)"
      " VALUES (1, 'S', 1, 'T', 0, 1000.1, 0), (2, 'U', 1, NULL, 1, 50.2, 5)");
  const auto card = open("O04001001");
  EXPECT_EQ(card->lblService.caption(), "Tarnybos stažas neįrašytas.");
  next<ServiceEditor>([&](ServiceEditor& dialog) {
    type_over(dialog.txtDate, "2007.12.31");
    type_over(dialog.txtYears, "4,5");
    type_over(dialog.txtMonths, "12");
    dialog.cmdWrite.click();
    EXPECT_EQ(last_box(), "Metai: „4,5“ nėra sveikasis skaičius.\nMėnesiai: „12“ – leidžiama nuo 0 iki 11.");
    type_over(dialog.txtYears, "4");
    type_over(dialog.txtMonths, "11");
    dialog.cmdWrite.click();
  });
  card->cmdService.click();
  EXPECT_EQ(card->lblService.caption(), "Tarnybos stažas 2008.01.31: 5 m. 0 mėn. (įrašyta 2007.12.31).");
  EXPECT_EQ(shown(card->lvwWorkedTime), "2008.01 (visas);FD  FD;160 | 2008.01.05;VD  VD;4,5");
  EXPECT_EQ(shown(card->lvwPaidHours), "FD  FD;;160");
  EXPECT_EQ(shown(card->lvwPaidSums),
            "Pareiginė alga;FD  FD;;1000,10 | Priedas;;5,00;50,20 | Iš viso;pareiginė alga;;1000,10 | "
            "Iš viso;priedai;;50,20 | Iš viso;priemokos;;0,00 | Iš viso;mokama;;1050,30 | Patikra;Viršyta riba;;");
  EXPECT_EQ(card->lvwPaidSums.colour(6), CellColour::kRed);
  card->dtpPayMonth.pick(day("2007.12.15"));
  EXPECT_EQ(card->lblPay.caption() + shown(card->lvwPaidSums) + shown(card->lvwWorkedTime),
            "2007.12: mėnuo atviras. Užmokestis neapskaičiuotas.");

  const std::int32_t user = company_.given_user("testuotoja");
  company_.given_rights(user, kEmployeeType, "vcdw");
  const auto other = open("O04001001");
  EXPECT_TRUE(other->lblPages.visible());
  EXPECT_FALSE(other->cmdNewPosition.enabled() || other->lvwPaidSums.enabled());
  EXPECT_EQ(other->lvwPaidSums.row_count(), 0U);
  company_.database().execute("UPDATE employees SET row_version = 2, changed_by = 'Jonas'");
  type_over(card->txtName, "Kita");
  card->cmdWrite.click();
  EXPECT_NE(last_box().find("Įrašymas neatliktas!\nĮrašą tuo metu pakeitė kitas vartotojas: Jonas"), std::string::npos)
      << last_box();
  EXPECT_TRUE(card->has_unsaved_changes());
}

}  // namespace
}  // namespace quor
