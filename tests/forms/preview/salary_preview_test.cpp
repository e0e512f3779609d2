// The salary preview of a month, acted on as a person does, with the real engine and host.
#include "forms/preview/salary_preview.h"

#include "forms/preview/supplement_preview.h"
#include "host/sample/sample_company.h"
#include "tests/support/preview_company.h"

namespace velmora {
namespace {

TEST(PersonCharges, TheLastRecordOfATypeCountsAndTheTotalIsRoundedToTheEvenCent) {
  const struct {
    const char* name;
    std::vector<ChargeRecord> records;
    double pay, supplement, surcharge, total_percentage;
  } cases[] = {
      {"of two of a type the last", {{800, 1, 7, 1}, {800, 2, 1, 2}, {800, 1, 2, 3}}, 800, 2, 1, 0.38},
      {"a half falls to the even cent", {{800, 1, 1, 1}}, 800, 1, 0, 0.12},
      {"another type has its pay only", {{700, 1, 7, 1}, {800, 3, 9, 9}}, 800, 7, 0, 0.88},
      {"no pay", {{0, 1, 5, 0}, {0, 2, 6, 0}}, 0, 5, 6, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    PersonCharges charges;
    for (const ChargeRecord& record : c.records) charges.take(record);
    EXPECT_EQ(charges.pay, c.pay);
    EXPECT_EQ(charges.supplement, c.supplement);
    EXPECT_EQ(charges.surcharge, c.surcharge);
    EXPECT_EQ(charges.total_percentage(), c.total_percentage);
  }
}

TEST(ByPerson, KeepsTheOrderOfOnePersonsRecordsWhateverStandsBetween) {
  ByPerson<int> records;
  for (const auto& [person, record] : {std::pair{7, 1}, {3, 2}, {7, 3}, {5, 4}, {7, 5}}) records.add(person, record);
  std::string of_seven;
  for (const auto& entry : records.of(7)) of_seven += std::to_string(entry.record);
  EXPECT_EQ(of_seven, "135");
  EXPECT_TRUE(records.of(4).empty() && records.of(8).empty());
}

class SalaryPreview : public Previews {
 protected:
  void given_sums(const Rows& rows) {
    given("GetOfficeEmployeeSurcharge",
          {whole("UserID"), number("Alga"), whole("SumType"), number("SumA"), number("Percentage")}, rows);
  }
  void given_limits(const Variant& extra, const Variant& surcharge, const Variant& total) {
    company_.given_settings({.from = "2005.01.01",
                             .time_codes = "12,15",
                             .extra_limit = extra,
                             .surcharge_limit = surcharge,
                             .total_limit = total});
  }
  static std::string captions(const quor::ListView& list) {
    std::string text;
    for (const char* header : {"Salary", "ExtraChargePercentage", "SurChargePercentage", "TotalChargePercentage"}) {
      text += list.columns()[list.header(header)].caption + ";";
    }
    return text;
  }
  // The columns of the row that are red, "0 7 8".
  static std::string red(const quor::ListView& list, std::size_t row) {
    std::string columns;
    for (std::size_t column = 0; column < list.columns().size(); ++column) {
      if (list.colour(row, column) == quor::CellColour::kRed) columns += std::to_string(column) + " ";
    }
    return columns;
  }
};

TEST_F(SalaryPreview, TheMonthsLastDayTheDepartmentAndTheListedCodesAreAskedFor) {
  given_limits(55.0, 60.0, 70.0);
  const auto form = open<frmOfficeEmployeePreview>();
  EXPECT_EQ(form->dtpDate.value(), day("2008.01.01"));
  struct Case {
    const char* date;
    const char* department;
    const char* asked;  // date and department
  };
  const auto number = std::to_string(company_.given_department("Taryba"));
  const std::string key = "O0001604" + number, of_department = "'2008.02.29'," + number;
  const Case cases[] = {{"2008.01.31", "", "'2008.01.31',0"},
                        {"2007.03.15", "O0001604", "'2007.03.31',0"},
                        {"2007.02.28", "", "'2007.02.28',0"},
                        {"2008.02.10", key.c_str(), of_department.c_str()}};
  for (const Case& c : cases) {
    application_.requests.clear();
    form->dtpDate.pick(day(c.date));
    application_.picked = {c.department + std::string("#GUID"), "Padalinys"};
    form->cmdClean.click();
    form->cmdSelect.click();
    EXPECT_EQ(application_.asked, "O0001604,,T");
    form->cmdGo.click();
    const std::string asked = c.asked;
    EXPECT_EQ(requests(), "GetOfficeEmployeePreview(" + asked + ") GetOfficeEmployeeSettings(" +
                              asked.substr(0, asked.find(',')) + ") GetOfficeEmployeeSurcharge(" + asked +
                              ",',12,15,')");
  }
  EXPECT_EQ(form->txtDepartment.text(), "Padalinys");
  application_.picked = {};
  form->cmdSelect.click();
  EXPECT_EQ(application_.asked, "O0001604," + key + ",T");
  EXPECT_EQ(form->txtDepartment.text() + form->txtDepartment.tag(), "Padalinys" + key) << "nothing was chosen";
}

TEST_F(SalaryPreview, APersonsFirstRowHasTheNumberTheNameAndTheCharges) {
  given_limits(10.0, kNull, 30.5);
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0},
                   {1, "Pirma", "B", 1.005, 0.0, kNull},
                   {1, "Pirma", kNull, kNull, kNull, 12.5},
                   {2, "Antras", "A", 1.0, 1.0, 5.0},
                   {1, "Pirma", "A", 1.0, 1.0, 5.0}});
  given_sums({{1, 1000.0, 1, 100.0, 10.01}, {1, 1000.0, 2, 205.06, 20.506}, {2, 0.0, 1, 40.0, 0.0}});
  const auto form = open<frmOfficeEmployeePreview>();
  form->cmdGo.click();
  const std::string charges = ";1000,00;100,00;10,01;205,06;20,51;305,06;30,51";
  const std::string none = "; ; ; ; ; ; ; ";
  EXPECT_EQ(quor::shown(form->lvwRows), "1;Pirma;A;9,70;130,00;1260" + charges +               //
                                            " |  ; ;B;1,01;0,00;" + none +                     //
                                            " |  ; ;;0,00;0,00;12,5" + none +                  //
                                            " | 2;Antras;A;1,00;1,00;5; ;40,00; ; ; ;40,00; "  //
                                            " | 3;Pirma;A;1,00;1,00;5" +
                                            charges);
  EXPECT_EQ(form->lvwRows.tag(2) + form->lvwRows.tag(3), "O04001001O04001002");
  EXPECT_EQ(captions(form->lvwRows), "2008.01 darbo užmokestis;% (iki 10%);% (iki 0%);% (iki 30,5%);");
  EXPECT_EQ(red(form->lvwRows, 0), "0 7 8 11 12 ");
  EXPECT_EQ(red(form->lvwRows, 1) + red(form->lvwRows, 3), "");
  form->cmdGo.click();
  EXPECT_EQ(form->lvwRows.row_count(), 5U) << "the list is made anew";
}

TEST_F(SalaryPreview, OnlyWhatIsOverItsLimitIsRed) {
  const struct {
    const char* name;
    Variant limits[3];
    double supplement, surcharge;  // of a pay of 1000
    const char *red, *supplement_head;
  } cases[] = {{"equal", {10.0, 20.0, 30.0}, 100, 200, "", "% (iki 10%)"},
               {"a hundredth over", {10.0, 20.0, 31.0}, 100.1, 200.1, "0 7 8 9 10 ", "% (iki 10%)"},
               {"no limits", {0.0, 0.0, 0.0}, 5000, 5000, "", "%"},
               {"the total alone", {0.0, kNull, 30.0}, 100, 200.1, "0 11 12 ", "%"},
               {"rounded to the limit", {0.0, 0.0, 30.0}, 100, 200.04, "", "%"},
               {"below zero is no limit", {-1.0, -1.0, -1.0}, 100, 200, "", "%"}};
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0}});
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    company_.database().execute("DELETE FROM settings");
    company_.company().forget();
    given_limits(c.limits[0], c.limits[1], c.limits[2]);
    given_sums({{1, 1000.0, 1, c.supplement, c.supplement / 10}, {1, 1000.0, 2, c.surcharge, c.surcharge / 10}});
    const auto form = open<frmOfficeEmployeePreview>();
    form->cmdGo.click();
    EXPECT_EQ(red(form->lvwRows, 0), c.red);
    EXPECT_EQ(form->lvwRows.columns()[8].caption, c.supplement_head);
  }
}

// The sums as they are stored, through the host's percentage; and the same rows through the engine's check.
TEST_F(SalaryPreview, AnExactShareIsWithinItsLimitAndACentMoreIsOverInThePreviewAndInTheCheck) {
  using Sums = std::vector<double>;
  const struct {
    const char* name;
    Sums base, supplements;
    double limit;
    bool over;
  } cases[] = {
      {"one row each", {117.60}, {64.68}, 55, false},
      {"a cent over", {117.60}, {64.69}, 55, true},
      {"a cent of the base less", {117.59}, {64.68}, 55, true},
      {"above by the division", {81.60}, {44.88}, 55, false},
      {"eight rows", Sums(8, 14.70), {8.08, 8.08, 8.08, 8.08, 8.08, 8.08, 8.08, 8.12}, 55, false},
      {"eight rows, a cent over", Sums(8, 14.70), {8.08, 8.08, 8.08, 8.08, 8.08, 8.08, 8.08, 8.13}, 55, true},
      {"a limit with decimals", {30.10, 51.50}, {10.10, 0.10}, 12.5, false},
      {"a limit with decimals, a cent over", {30.10, 51.50}, {10.10, 0.11}, 12.5, true},
      {"a base that cancels", {0.10, 0.20, -0.30}, {50}, 55, false},
      {"below zero, at the limit", {-100}, {-55}, 55, false},
      {"below zero, a cent over", {-100}, {-55.01}, 55, true},
  };
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0}});
  company_.given_employee("Pirma");
  quor::Database& database = company_.database();
  engine_->OID("D");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    for (const char* table : {"settings", "salary_rows", "documents"}) {
      database.execute(std::string("DELETE FROM ") + table);
    }
    database.execute(
        "INSERT INTO documents (id, guid, employee_id, month, check_code, check_message)"
        " VALUES (1, 'D', 1, 39448, 0, '')");
    company_.company().forget();
    given_limits(c.limit, 0.0, 0.0);
    Rows times, sums;
    const auto add = [&](double sum, std::int32_t type) {
      const auto id = static_cast<std::int32_t>(sums.size()) + 1;
      const std::string guid = "t" + std::to_string(id);
      if (type == 0) times.push_back({"D", 1, guid});
      sums.push_back({guid, sum, type});
      database.execute(
          "INSERT INTO salary_rows (id, guid, document_id, sum_type, sum_a) VALUES (:p0, :p1, 1, :p2, :p3)",
          {id, guid, type, sum});
    };
    for (const double sum : c.base) add(sum, 0);
    for (const double sum : c.supplements) add(sum, 1);

    const auto form = open<frmOfficeEmployeePreview>();
    form->cmdGo.click();
    EXPECT_EQ(red(form->lvwRows, 0), c.over ? "0 7 8 " : "");
    const auto check = engine_->Methods(
        "CheckSalaryRows",
        {record_set({{"SalaryExtraOID", FieldType::kText}, whole("SalaryTimeCodeID"), {"GUID", FieldType::kText}},
                    times),
         record_set({{"TimeRowGUID", FieldType::kText}, number("SumA"), whole("PersonalExtraChargeID")}, sums),
         day("2008.01.31"), 1});
    EXPECT_EQ(check.Code, c.over ? 4 : 0) << check.Message;
  }
}

TEST_F(SalaryPreview, AFailedRequestLeavesItsPartEmptyAndTheButtonsOnAgain) {
  given_limits(10.0, 20.0, 30.0);
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0}});
  given_sums({{1, 1000.0, 1, 110.0, 11.0}});
  const auto form = open<frmOfficeEmployeePreview>();
  int watched = 0;
  engine_->on_request = [&] {
    ++watched;
    EXPECT_FALSE(form->cmdGo.enabled() || form->cmdPrint.enabled() || form->cmdSelect.enabled());
    EXPECT_EQ(application_.busy(), 1);
  };
  const auto fill_without = [&](const char* request) {
    const auto answers = application_.answers;
    application_.refuse(request, "ryšys nutrūko");
    form->cmdGo.click();
    application_.answers = answers;
  };
  fill_without("GetOfficeEmployeeSurcharge");
  EXPECT_EQ(quor::shown(form->lvwRows), "1;Pirma;A;9,70;130,00;1260; ; ; ; ; ; ; ");
  fill_without("GetOfficeEmployeeSettings");
  EXPECT_EQ(captions(form->lvwRows), "2008.01 darbo užmokestis;%;% (iki 0%);% (iki 0%);");
  EXPECT_EQ(red(form->lvwRows, 0), "");
  EXPECT_EQ(application_.requests.back(), "GetOfficeEmployeeSurcharge('2008.01.31',0,''), flag 0");
  fill_without("GetOfficeEmployeePreview");
  EXPECT_EQ(form->lvwRows.row_count(), 0U);
  EXPECT_EQ(application_.boxes().size(), 3U);
  EXPECT_EQ(watched, 9);
  EXPECT_TRUE(form->cmdGo.enabled() && form->cmdPrint.enabled() && form->cmdSelect.enabled());
}

TEST_F(SalaryPreview, MorePersonsThanASixteenBitCountEndTheFilling) {
  Rows rows;
  for (std::int32_t person = 1; person <= 32768; ++person) rows.push_back({person});
  given_positions(rows);
  const auto form = open<frmOfficeEmployeePreview>();
  EXPECT_EQ(quor::outcome([&] { return form->cmdGo.click(), std::string("filled"); }), "Overflow");
  EXPECT_EQ(form->lvwRows.row_count(), 32767U);
  EXPECT_EQ(form->lvwRows.text(32766), "32767");
  EXPECT_TRUE(form->cmdGo.enabled());
  EXPECT_EQ(application_.busy(), 0);
}

TEST_F(SalaryPreview, TheSelectedPersonIsPutOnTheDeskTop) {
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0}, {12, "Antras", "A", 9.7, 130.0, 1260.0}});
  const auto form = open<frmOfficeEmployeePreview>();
  form->lvwRows.double_click({});
  form->cmdGo.click();
  form->lvwRows.right_click({});
  EXPECT_FALSE(form->mnuMenu.is_open()) << "no row is selected";
  quor::choose_on(form->lvwRows, 1, form->mnuOnDeskTop);
  form->lvwRows.double_click(0);
  EXPECT_EQ(application_.desk_top(), (std::vector<std::string>{"O040010012", "O04001001"}));
}

TEST_F(SalaryPreview, ThePrintedListIsTheListUnderAHeading) {
  company_.database().execute("UPDATE company SET name = 'Savivaldybė'");
  given_limits(10.0, 20.0, 30.0);
  given_positions({{1, "Pirma", "A", 9.7, 130.0, 1260.0}, {1, "Pirma", "B", 1.0, 1.0, 1.0}});
  given_sums({{1, 1000.0, 1, 110.0, 11.0}});
  const auto form = open<frmOfficeEmployeePreview>();
  application_.picked = {"O00016041", "Taryba"};
  form->cmdSelect.click();
  form->cmdGo.click();
  form->dtpDate.pick(day("2008.02.01"));
  form->cmdClean.click();
  form->cmdPrint.click();
  const quor::ReportData& report = *application_.shown_report();
  EXPECT_EQ(report.title, "Savivaldybė");
  EXPECT_EQ(report.headings, (std::vector<std::string>{" Valstybės tarnautojų sąrašas", "2008.01", "Taryba"}));
  EXPECT_EQ(std::pair(report.first_margin, report.second_margin), std::pair(1.2, 1.0));
  EXPECT_EQ(columns_of(report),
            "Nr 0,8; Preview 6; Category 4; Factor 1,7; BaseTariff 1,3; RoundedSalary 1,5; Salary 2; ExtraCharge 2;"
            " ExtraChargePercentage 1,5; SurCharge 2; SurChargePercentage 1,5; TotalCharge 2;"
            " TotalChargePercentage 1,5; ");
  EXPECT_EQ(report.columns[8].caption, "% (iki 10%)");
  EXPECT_EQ(report.columns[8].alignment, quor::CellAlignment::kRight);
  ASSERT_EQ(report.lines, 2U);
  EXPECT_EQ(report.cell(0, 8).text + report.cell(1, 2).text, "11,00B");
  EXPECT_EQ(report.cell(0, 0).colour, quor::CellColour::kRed);
}

TEST(PreviewWork, TheStatementsOfAFillingDoNotDependOnThePeople) {
  for (const std::int32_t employees : {10, 100}) {
    quor::TestCompany company;
    make_sample_company(company.database(), {.employees = employees, .progress = {}});
    const auto fill = [&](auto& form) {
      company.company().forget();
      form.QuorObjectUIO = std::make_shared<UIO0402000>(company.application());
      form.load();
      const auto before = company.database().statements();
      form.cmdGo.click();
      EXPECT_GE(form.lvwRows.row_count(), static_cast<std::size_t>(employees) * 9 / 10);
      return company.database().statements() - before;
    };
    frmOfficeEmployeePreview salaries(company.application());
    EXPECT_EQ(fill(salaries), 9U) << "the first asks whether the company has users";
    frmOfficeEmployeeExtraChargePreview supplements(company.application());
    EXPECT_EQ(fill(supplements), 10U);
  }
}

}  // namespace
}  // namespace velmora
