// The supplement preview of a month, acted on as a person does, with the real engine and host.
#include "forms/preview/supplement_preview.h"

#include "forms/personal/extra_charges_editor.h"
#include "forms/personal/personal_experience_editor.h"
#include "tests/support/preview_company.h"

namespace velmora {
namespace {

TEST(Supplements, APercentageWinsOverTheSumAndHalfCentsGoUp) {
  const struct {
    const char* name;
    double sum, percentage;
    const char* salary;
    double expected;  // behind an amount of 77
  } cases[] = {{"of the salary", 0, 5, "1234,5", 61.73},
               {"the sum gives way", 150, 10, "  200", 20},
               {"the sum alone", 150, 0, "200", 150},
               {"neither", 0, 0, "200", 0},
               {"no salary", 0, 10, " ", 77},
               {"no salary, the sum gives way", 150, 10, "", 77}};
  for (const auto& c : cases) {
    EXPECT_EQ(charge_amount(c.sum, c.percentage, salary_in_cell(c.salary), 77), c.expected) << c.name;
  }
  EXPECT_THROW((void)salary_in_cell("1234.5"), quor::Error);
}

class SupplementPreview : public Previews {
 protected:
  void SetUp() override {
    company_.given_tariffs();
    const auto category = company_.given_category("A", {{"2005.01.01", 9.7}});  // 1260 a month
    one_ = company_.given_employee("Adomas");
    two_ = company_.given_employee("Benas");
    for (const auto person : {one_, two_, two_}) company_.given_position({.employee = person, .category = category});
    company_.given_service(one_, day("2001.03.20"), 2, 11);
    form_ = open<frmOfficeEmployeeExtraChargePreview>();
  }
  void given_charge(std::int32_t person, const char* from, const char* to, const Variant& sum,
                    const Variant& percentage, const Variant& tied = kNull) {
    const auto id = company_.given_charge(person, day(from), day(to), sum);
    company_.database().execute("UPDATE extra_charges SET percentage = :p0, salary_extra_oid = :p1 WHERE id = :p2",
                                {percentage, tied, id});
    company_.company().forget();
  }
  std::string filled(const char* date = "2008.01.15") {
    form_->dtpDate.pick(day(date));
    form_->cmdGo.click();
    return quor::shown(form_->lvwRows);
  }

  std::int32_t one_ = 0, two_ = 0;
  std::unique_ptr<frmOfficeEmployeeExtraChargePreview> form_;
};

TEST_F(SupplementPreview, ChargesStandOnThePersonsRowsAndOnAddedOnes) {
  given_charge(one_, "2007.01.01", "2999.12.31", kNull, 99.0, "O0402000");  // 9 years of service: 5 %
  given_charge(two_, "2007.01.01", "2999.12.31", kNull, 7.5);
  given_charge(one_, "2007.01.01", "2999.12.31", 150.0, kNull);
  given_charge(one_, "2007.01.01", "2999.12.31", 150.0, 10.0, "O04020001");
  given_charge(one_, "2007.01.01", "2999.12.31", 0.0, 0.0);
  EXPECT_EQ(filled(),
            "1;Adomas;9;A;1260;5%;63,00 |  ; ; ; ; ; ;150,00 |  ; ; ; ; ; ;126,00 |  ; ; ; ; ;0%;0,00"
            " | 2;Benas;0;A;1260;7,5%;94,50 |  ; ; ;A;1260; ; ");
  EXPECT_EQ(form_->lvwRows.tag(3), "O0400100" + std::to_string(one_));
  EXPECT_EQ(form_->lvwRows.columns()[form_->lvwRows.header("Percentage")].caption, "Priedo procentas");
  EXPECT_EQ(requests(),
            "GetOfficeEmployeePreview('2008.01.31',0) GetOfficeEmployeeSettings('2008.01.31')"
            " GetOfficeEmployeeExtraCharges(None) GetOfficeEmployeeExperience(None)");
  EXPECT_EQ(filled("2008.05.02").substr(0, 14), "1;Adomas;10;A;") << "a year more of service, past the scale";
  EXPECT_EQ(form_->lvwRows.text(0, 5) + form_->lvwRows.text(0, 6), "0%0,00");
}

TEST_F(SupplementPreview, ChargesThatHoldOnADayOfTheMonthAreListed) {
  const struct {
    const char *from, *to;
    bool holds;
  } cases[] = {{"2008.01.15", "2008.01.16", true},
               {"2007.01.01", "2007.12.31", false},
               {"2007.01.01", "2008.01.01", true},
               {"2008.01.31", "2008.05.01", true},
               {"2008.02.01", "2008.05.01", false}};
  for (const auto& c : cases) {
    company_.database().execute("DELETE FROM extra_charges");
    given_charge(one_, c.from, c.to, 12.0, kNull);
    EXPECT_EQ(filled().find("12,00") != std::string::npos, c.holds) << c.from << " " << c.to;
  }
}

TEST_F(SupplementPreview, AFailedScaleGivesNoPercentageAndABlankSalaryTheAmountBefore) {
  given_positions({{one_, "Adomas", "A", 9.7, 130.0, kNull}});
  given_charge(one_, "2007.01.01", "2999.12.31", 33.0, kNull);
  given_charge(one_, "2007.01.01", "2999.12.31", kNull, 10.0);
  given_charge(one_, "2007.01.01", "2999.12.31", kNull, 99.0, "O0402000");
  application_.refuse("GetOfficeEmployeeSettings", "ryšys nutrūko");
  EXPECT_EQ(filled(), "1;Adomas;9;A;; ;33,00 |  ; ; ; ; ;10%;33,00 |  ; ; ; ; ;0%;0,00");
  application_.refuse("GetOfficeEmployeeExtraCharges", "ryšys nutrūko");
  application_.refuse("GetOfficeEmployeeExperience", "ryšys nutrūko");
  EXPECT_EQ(filled(), "1;Adomas;0;A;; ; ");
}

TEST_F(SupplementPreview, TheEditorsOpenOnTheRowAndAConfirmedEditFillsAgain) {
  filled();
  std::string opened;
  bool confirm = true;
  int dialogs = 0;
  application_.on_modal([&](quor::Form& form) {
    ++dialogs;
    quor::choose_on(form_->lvwRows, 0, form_->mnuExperience);
    form_->lvwRows.double_click(0);
    EXPECT_FALSE(form_->mnuMenu.is_open());
    if (auto* charges = dynamic_cast<frmOfficeEmployeeExtraCharges*>(&form)) {
      opened =
          charges->SalaryPersonalOIDR + " " + quor::date_text(charges->mDate) + " " + charges->lblPreview.caption();
      EXPECT_EQ(charges->QuorObjectUIO, engine_);
      charges->mCancel = !confirm;
      charges->cmdClose.click();
    } else {
      auto& experience = dynamic_cast<frmOfficeEmployeePersonalExperience&>(form);
      opened =
          experience.UserOIDR + " " + quor::date_text(experience.dtpDate2.value()) + " " + experience.txtYears.text();
      quor::type_and_leave(experience.txtYears, "20");
      (confirm ? experience.cmdWrite : experience.cmdCancel).click();
    }
    given_charge(one_, "2007.01.01", "2999.12.31", 12.0, kNull);
  });
  const std::string second = "O0400100" + std::to_string(two_), first = "O0400100" + std::to_string(one_);
  form_->lvwRows.double_click({});
  EXPECT_EQ(opened, "");
  form_->lvwRows.double_click(1);
  EXPECT_EQ(opened, second + " 2008.01.31 Benas");
  EXPECT_EQ(dialogs, 1) << "what is done meanwhile opens nothing";
  EXPECT_EQ(form_->lvwRows.selected(), 0U);
  EXPECT_EQ(quor::shown(form_->lvwRows).substr(0, 25), "1;Adomas;9;A;1260; ;12,00") << "filled again";
  quor::choose_on(form_->lvwRows, 0, form_->mnuExperience);
  EXPECT_EQ(opened, first + " 2008.01.01 2");
  EXPECT_EQ(form_->lvwRows.text(0, 2), "27");
  confirm = false;
  const std::size_t rows = form_->lvwRows.row_count();
  quor::choose_on(form_->lvwRows, 0, form_->mnuExperience);
  quor::choose_on(form_->lvwRows, 0, form_->mnuEdit);
  EXPECT_EQ(form_->lvwRows.row_count(), rows) << "cancelled edits fill nothing";
  quor::choose_on(form_->lvwRows, 0, form_->mnuOnDeskTop);
  EXPECT_EQ(application_.desk_top(), std::vector<std::string>{first});
}

TEST_F(SupplementPreview, AServiceThatIsNoneIsToldOfItsPersonAlone) {
  company_.given_service(two_, day("2001.01.01"), 40000, 3);
  for (const auto person : {one_, two_}) given_charge(person, "2007.01.01", "2999.12.31", kNull, kNull, "O0402000");
  EXPECT_EQ(filled(), "1;Adomas;9;A;1260;5%;63,00 | 2;Benas; ;A;1260;0%;0,00 |  ; ; ;A;1260; ; ");
  EXPECT_EQ(application_.boxes(), std::vector<std::string>{"information, ok, Testas: Benas: Netinkamas įrašytas "
                                                           "tarnybos stažas: metai 40000, mėnesiai 3."});
}

TEST_F(SupplementPreview, ThePrintedListHasItsSevenColumns) {
  filled();
  form_->cmdPrint.click();
  const quor::ReportData& report = *application_.shown_report();
  EXPECT_EQ(columns_of(report),
            "Nr 0,8; Preview 6,5; ExperienceYears 1,7; Category 4; RoundedSalary 2; ExtraChargePercentage 1,8;"
            " ExtraCharge 2; ");
  EXPECT_EQ(report.headings.front(), " Valstybės tarnautojų priedai");
  EXPECT_EQ(report.cell(0, 1).text, "Adomas");
}

}  // namespace
}  // namespace velmora
