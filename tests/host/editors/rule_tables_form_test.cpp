#include "host/editors/rule_tables_form.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class RuleTablesWindow : public testing::Test {
 protected:
  RuleTablesWindow() { company_.application().load_plugin(VELMORA_PLUGIN); }
  void given_table(const char* rows) {
    std::ofstream(folder_.path("skalė.csv")) << "Pastaba;Skalė;Metai;Stažo procentas\n" << rows;
  }

  TestCompany company_;
  TemporaryFolder folder_;
};

TEST_F(RuleTablesWindow, ShowsWhatIsRedFirstAndTriesAgainWhatWasChanged) {
  given_table("gera;0-5:3;4;3\nriba;0-5:3;5;3\n");
  std::ofstream(folder_.path("ne lentelė.csv")) << "a;b\n1;2\n";
  RuleTablesForm form(company_.application(), folder_.path(""));
  form.load();
  EXPECT_EQ(form.lblSummary.caption(), "✗ Ne viskas tinka: atvejų 2, netinkamų 1, neišbandytų lentelių 1");
  ASSERT_EQ(form.lvwCases.row_count(), 3U);
  EXPECT_EQ(form.lvwCases.selected(), 0U);
  EXPECT_EQ(shown(form.lvwSteps).find("1 eilutė, stulpelis „a“: pagal stulpelius"), 0U);
  EXPECT_EQ(form.lvwCases.text(1, 0) + form.lvwCases.text(2, 0), "✓ tinka✗ netinka");
  form.lvwCases.select(2);
  EXPECT_EQ(shown(form.lvwResults), "✗ netinka;Stažo procentas;3;0");
  EXPECT_EQ(shown(form.lvwSteps), "nė vienoje pakopoje 5 m. nėra: 0 %");
  form.chcShow.choose(1);
  EXPECT_EQ(form.lvwCases.row_count(), 2U);

  given_table("gera;0-5:3;4;3\nriba;0-5:3;5;0\n");
  std::filesystem::remove(folder_.path("ne lentelė.csv"));
  form.cmdRun.click();
  EXPECT_EQ(form.lblSummary.caption(), "✓ Tinka viskas: atvejų 2, netinkamų 0");
  EXPECT_EQ(form.lvwCases.row_count() + form.lvwResults.row_count(), 0U);
  std::filesystem::remove(folder_.path("skalė.csv"));
  EXPECT_EQ(outcome([&] { return form.cmdRun.click(), 0; }), "NotFound");
  EXPECT_EQ(form.lblSummary.caption(), "✓ Tinka viskas: atvejų 2, netinkamų 0") << "what was tried stays in sight";
}

}  // namespace
}  // namespace quor
