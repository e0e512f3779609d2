// The side pane that explains, in the main window, by keys and mouse.
#include "host/desktop/window/explanation_pane.h"

#include <QTextBrowser>
#include <QTreeView>
#include <gtest/gtest.h>

#include "host/desktop/window/main_window.h"
#include "host/editors/host_editors.h"
#include "host/payroll/calculated_month.h"
#include "host/store/object_codes.h"
#include "platform/toolkit/date_picker.h"
#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

class ExplanationPaneTest : public testing::Test {
 protected:
  ExplanationPaneTest() {
    company_.given_tariffs();
    company_.given_time_codes();
    const auto category = company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2008.02.01", 10.1}});
    for (const auto& [name, share] : {std::pair("Ada", 1.0), std::pair("Benas", 0.5)}) {
      company_.given_position(
          {.employee = company_.given_employee(name), .category = category, .share = share, .norm = name});
    }
    Transaction(company_.database()).commit();
    application_.load_plugin(VELMORA_PLUGIN);
    calculate_month(application_, Month::parse("2008-01"), {});
    window_ = std::make_unique<MainWindow>(application_);
    bring_up(*window_);
    window_->show_type(kEmployeeType);
    window_->list()->focus_list();
    settle();
  }
  ~ExplanationPaneTest() override {
    window_.reset();
    settle();
  }
  // What is told, once the pane has followed.
  std::string told() {
    QTest::qWait(250);
    return window_->explanation().text().toPlainText().toStdString();
  }

  TestCompany company_;
  DesktopApplication application_{company_.company(),
                                  {.title = "Testas",
                                   .user = "testuotoja",
                                   .today = Date::from_ymd(2008, 1, 31),
                                   .edit_charge = {},
                                   .host_types = host_editors()},
                                  test_edge()};
  std::unique_ptr<MainWindow> window_;
};

TEST_F(ExplanationPaneTest, FollowsWhoIsInSightAndLeadsToWhatIsStored) {
  ExplanationPane& pane = window_->explanation();
  press(Qt::Key_Home);
  press(Qt::Key_F2);
  EXPECT_TRUE(pane.isVisible() && pane.text().hasFocus());
  EXPECT_NE(told().find("Pareiginė alga 1260,00 = bazinė alga 130,00 (nuo 2005.01.01) x koeficientas 9,7"),
            std::string::npos)
      << told();
  press(Qt::Key_Escape);
  EXPECT_TRUE(!pane.isVisible() && window_->list()->view().hasFocus());

  press(Qt::Key_F2);
  window_->list()->focus_list();
  press(Qt::Key_Down);
  EXPECT_EQ(told().substr(0, 5), "Benas");
  EXPECT_NE(told().find("x 0,5 etato"), std::string::npos);

  company_.database().execute("UPDATE constant_values SET value = 140 WHERE constant_type_id = 1");
  Transaction(company_.database()).commit();
  window_->refresh_all();
  EXPECT_NE(told().find("Įrašytas mėnesio dokumentas kitoks"), std::string::npos);
  EXPECT_NE(told().find("bazinė alga 140,00"), std::string::npos);

  const QString key = QString::fromStdString(object_key(kCategoryType, 1));
  emit pane.text().anchorClicked(QUrl(key));
  settle();
  EXPECT_EQ(window_->tabs().tabText(window_->tabs().currentIndex()), "A lygis");
}

TEST_F(ExplanationPaneTest, TakesTheMonthOfTheWindowInFrontAndSaysWhatItCannotTell) {
  press(Qt::Key_Home);
  press(Qt::Key_F2);
  press(Qt::Key_1, Qt::ControlModifier);
  settle();
  const FormView* const preview = window_->tabs().current_view();
  ASSERT_NE(preview, nullptr);
  for (Control* const control : preview->form().controls()) {
    if (auto* const date = dynamic_cast<DatePicker*>(control)) date->pick(Date::from_ymd(2008, 2, 10));
  }
  press(Qt::Key_F5);
  settle();
  press(Qt::Key_Tab);
  EXPECT_NE(told().find("koeficientas 10,1"), std::string::npos) << told();
  EXPECT_EQ(window_->explanation().month().text(), "2008.02");

  company_.database().execute("UPDATE positions SET category_id = NULL");
  Transaction(company_.database()).commit();
  window_->refresh_all();
  EXPECT_NE(told().find("! Neapskaičiuota: nėra pareigybės kategorijos"), std::string::npos) << told();
}

}  // namespace
}  // namespace quor
