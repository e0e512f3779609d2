// The help: F1 in whatever window is in front, a page for every topic, a line for every key of the window.
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QTextBrowser>
#include <gtest/gtest.h>

#include "host/desktop/window/help_pages.h"
#include "host/desktop/window/help_window.h"
#include "host/desktop/window/main_window.h"
#include "host/desktop/window/rights_dialog.h"
#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

TEST(HelpPages, EveryTopicAndLinkHasItsPage) {
  const auto has_page = [](const QString& page) { return !help_title(page).isEmpty(); };
  for (const HelpTopic& topic : help_topics()) EXPECT_TRUE(has_page(topic.page)) << topic.caption;
  for (const char* page : {kHelpStart, kHelpList, kHelpKeys, kHelpAbout}) EXPECT_TRUE(has_page(page)) << page;
  const QRegularExpression link("\\]\\(([a-z_]+)\\.md\\)");
  for (const EmbeddedFile& each : help_pages()) {
    const QString page = QString::fromStdString(std::string(each.name));
    for (const auto& match : link.globalMatch(help_text(page)))
      EXPECT_TRUE(has_page(match.captured(1))) << page.toStdString() << ": " << match.captured(1).toStdString();
  }
  EXPECT_EQ(help_page_of(" Valstybės tarnautojų priedai"), "supplement_preview");
  EXPECT_EQ(help_page_of("Tarnybos stažas: Jonaitis"), "service");
  EXPECT_EQ(help_page_of("Kitas langas"), "start");
  EXPECT_TRUE(pages_with("virsvalandziai fakt").contains("codes"));
  EXPECT_FALSE(pages_with("virsvalandziai fakt").contains("rights"));
}

TEST(Help, F1ShowsThePageOfTheWindowInFrontAboveADialogToo) {
  TestCompany company;
  DesktopApplication application(company.company(), {.title = "Testas", .today = day("2008.01.31")}, test_edge());
  MainWindow window(application);
  bring_up(window);
  const QString keys = help_text(kHelpKeys);
  for (const QAction* action : window.findChildren<QAction*>()) {
    const QString key = action->shortcut().toString(QKeySequence::PortableText);
    EXPECT_TRUE(key.isEmpty() || keys.contains("| " + key + " |")) << key.toStdString();
  }
  press(Qt::Key_F1);
  settle();
  auto* const help = dynamic_cast<HelpWindow*>(QApplication::activeWindow());
  ASSERT_NE(help, nullptr);
  EXPECT_EQ(help->page(), "list");
  help->findChild<QLineEdit*>()->setText("skale");
  auto& contents = only<QListWidget>(*help);
  EXPECT_GT(contents.count(), 1);
  EXPECT_LT(contents.count(), static_cast<int>(help_pages().size()));
  contents.setCurrentRow(contents.count() - 1);
  EXPECT_TRUE(only<QTextBrowser>(*help).toPlainText().contains("skal"));
  help->close();
  settle();

  window.activateWindow();
  RightsDialog dialog(application, &window);
  dialog.setModal(true);
  bring_up(dialog);
  press(Qt::Key_F1);
  settle();
  auto* const above = dynamic_cast<HelpWindow*>(QApplication::activeWindow());
  ASSERT_NE(above, nullptr);
  EXPECT_EQ(above->page(), "rights");
  press(Qt::Key_Escape);
  settle();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.findChild<QTextBrowser*>(), nullptr);
}

}  // namespace
}  // namespace quor
