// What a clerk sees first.
#include "host/editors/first_page.h"

#include <gtest/gtest.h>

#include "host/store/object_codes.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

TEST(FirstPageTest, ShowsTheStepsOfTheMonthsThatComeAndSaysWhyItShowsNone) {
  TestCompany company;
  company.application().load_plugin(VELMORA_PLUGIN);
  company.given_tariffs();
  company.given_time_codes();
  const auto category = company.given_category("A lygis", {{"2005.01.01", 9.7}});
  const auto department = company.given_department("Skyrius");
  for (const auto& [name, months] : {std::pair("Ada", 11), std::pair("Benas", 10), std::pair("Cilė", 7)}) {
    const auto person = company.given_employee(name, department);
    company.given_position({.employee = person, .category = category, .norm = name});
    company.given_service(person, day("2008.01.01"), 2, months);
  }
  FirstPage page(company.application());
  page.load();
  EXPECT_EQ(page.lblState.caption(), "Žmonių: 2.");
  EXPECT_EQ(page.lvwSteps.text(0) + page.lvwSteps.text(0, 1) + page.lvwSteps.text(0, 6),
            "Ada2008.02.01priedo už stažą nėra");
  EXPECT_EQ(page.lvwSteps.text(1) + page.lvwSteps.tag(1), "BenasO04001002") << "a month later";
  page.chcMonths.choose(2);
  EXPECT_EQ(page.lblState.caption(), "Žmonių: 3.");
  page.dtpMonth.pick(day("2010.06.10"));
  page.cmdShow.click();
  EXPECT_EQ(page.lblState.caption() + std::to_string(page.lvwSteps.row_count()), "Žmonių: 1.1") << "five years";

  company.given_user("kita");
  FirstPage closed(company.application());
  closed.load();
  EXPECT_EQ(closed.lblState.caption(), "Darbo užmokesčio duomenų peržiūrėti neturite teisės.");
  EXPECT_FALSE(closed.cmdShow.enabled());
}

}  // namespace
}  // namespace quor
