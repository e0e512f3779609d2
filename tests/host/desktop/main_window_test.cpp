// The main window on a real company with the plug-in, driven by mouse and keys.
#include "host/desktop/window/main_window.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <gtest/gtest.h>

#include "host/application/user_rights.h"
#include "host/desktop/answers/form_dialog.h"
#include "host/desktop/window/first_start.h"
#include "host/editors/host_editors.h"
#include "host/editors/personal_charge_editor.h"
#include "host/editors/rule_tables_form.h"
#include "host/sample/sample_company.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "platform/toolkit/grid.h"
#include "platform/toolkit/text_box.h"
#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

std::string told(const QWidget& window) { return said(window).toStdString(); }

class MainWindowTest : public testing::Test {
 protected:
  static constexpr char kTester[] = "testuotoja";

  void open(const char* user = kTester, const std::vector<const char*>& plugins = {VELMORA_PLUGIN}) {
    application_ = std::make_unique<DesktopApplication>(company_.company(),
                                                        ApplicationOptions{.title = "Testas",
                                                                           .user = user,
                                                                           .today = Date::from_ymd(2008, 1, 31),
                                                                           .edit_charge = edit_personal_charge,
                                                                           .host_types = host_editors()},
                                                        test_edge());
    for (const char* file : plugins) application_->load_plugin(file);
    window_ = std::make_unique<MainWindow>(*application_);
    bring_up(*window_);
  }
  void TearDown() override {
    window_.reset();
    settle();
  }

  // Once a dialog has gone, a desk's window manager gives the focus back; the test's screen has none.
  void come_back() { bring_up(*window_); }

  QAbstractItemModel& rows() { return *window_->list()->view().model(); }
  // The first column of the list, as it is shown.
  std::string shown() {
    QStringList texts;
    for (int row = 0; row < rows().rowCount(); ++row) texts << rows().index(row, 0).data().toString();
    return texts.join(" ").toStdString();
  }
  std::string tabs() {
    QStringList texts;
    for (int tab = 0; tab < window_->tabs().count(); ++tab) texts << window_->tabs().tabText(tab);
    return texts.join(" | ").toStdString();
  }
  // Asks for the menu of a row, or of the place below the rows, by the mouse.
  void right_click_row(int row) {
    QTreeView& view = window_->list()->view();
    const QRect place = view.visualRect(rows().index(row, 0));
    click(view.viewport(), Qt::RightButton,
          row < 0 ? QPoint(40, view.viewport()->height() - 5) : place.topLeft() + QPoint(30, place.height() / 2));
    QTest::qWait(50);
  }
  static QMenu& menu(QWidget& window) { return dynamic_cast<QMenu&>(window); }
  // Those before what a list offers by itself.
  static std::string entries(QWidget& window) {
    QStringList texts;
    for (const QAction* action : menu(window).actions())
      texts << (action->isSeparator() ? "-" : action->text().section('\t', 0, 0));
    const auto own = std::find_if(texts.begin(), texts.end(), [](const QString& text) {
      return text.startsWith("Ieškoti sąraše") || text == "Kopijuoti" || text == "Kodėl tiek?";
    });
    EXPECT_TRUE(own == texts.end() || texts.last() == "Įrašyti kaip CSV…");
    texts.erase(own == texts.begin() || own == texts.end() ? own : own - 1, texts.end());
    return texts.join("|").toStdString();
  }
  static void choose(QWidget& window, const QString& caption) {
    for (QAction* action : menu(window).actions()) {
      if (!action->text().startsWith(caption)) continue;
      QTest::mouseClick(&window, Qt::LeftButton, {}, menu(window).actionGeometry(action).center());
      return;
    }
    ADD_FAILURE() << "no entry " << caption.toStdString();
  }

  TestCompany company_;
  std::unique_ptr<DesktopApplication> application_;
  std::unique_ptr<MainWindow> window_;
};

TEST_F(MainWindowTest, TheExplorerShowsWhatIsRegistered) {
  company_.given_employee("Ona Onaitė");
  open();
  QStringList lines;
  for (QTreeWidgetItemIterator each(&window_->explorer()); *each != nullptr; ++each) {
    int depth = 0;
    for (const QTreeWidgetItem* above = (*each)->parent(); above != nullptr; above = above->parent()) ++depth;
    EXPECT_FALSE((*each)->icon(0).isNull()) << (*each)->text(0).toStdString();
    lines << QString(depth, '>') + (*each)->text(0);
  }
  EXPECT_EQ(lines.join('\n').toStdString(),
            "Darbo užmokesčio išplėtimas\n>Valstybės tarnautojai\n>>Pareigybių kategorijos\n"
            ">>Valstybės tarnautojų sąrašas\n>>Valstybės tarnautojų priedai\n>Valstybės tarnautojų nustatymai\n"
            "Darbuotojai ir padaliniai\n>Darbuotojai\n>Padaliniai\n"
            "Mėnuo\n>Mėnesiai\n>Darbo laikas\nKonstantos, normos ir kodai\n>Darbo užmokesčio konstantos\n>Mėnesių "
            "normos\n>Laiko kodai\n"
            ">Darbo užmokesčio kodai");
  window_->show_type(kEmployeeType);
  EXPECT_EQ(shown(), "Ona Onaitė");
  EXPECT_EQ(window_->list()->current(), "O04001001") << "the first object";
  EXPECT_EQ(tabs(), "Darbuotojai");
}

TEST_F(MainWindowTest, DepartmentsStandAsATreeUntilTheyAreSorted) {
  company_.given_department("Beržų", company_.given_department("Žemės"));
  company_.given_department("Čekių");
  open();
  window_->show_type(kDepartmentType);
  EXPECT_EQ(shown(), "Čekių Žemės     Beržų");
  rows().sort(0, Qt::AscendingOrder);
  EXPECT_EQ(shown(), "Beržų Čekių Žemės");
}

TEST_F(MainWindowTest, APluginOfOtherNamesHasItsPlacesAndKeys) {
  open(kTester, {VELMORA_PLUGIN, VELMORA_SECOND_PLUGIN});
  QStringList lines;
  for (QTreeWidgetItem* item = window_->explorer().topLevelItem(1); item != nullptr; item = item->child(0)) {
    EXPECT_FALSE(item->icon(0).isNull()) << item->text(0).toStdString();
    lines << item->text(0);
  }
  EXPECT_EQ(lines.join(" > ").toStdString(), "Biblioteka > Skaitykla > Knygos");
  window_->show_type("O0900100");
  window_->list()->focus_list();
  EXPECT_EQ(shown(), "Pirmoji knyga");
  press(Qt::Key_Return);
  EXPECT_EQ(tabs(), "Knygos | Pirmoji knyga");
  window_->tabs().show_lists();
  window_->list()->focus_list();
  press(Qt::Key_Insert);
  EXPECT_EQ(tabs(), "Knygos | Pirmoji knyga | Nauja knyga");
  window_->tabs().show_lists();
  window_->list()->focus_list();
  press(Qt::Key_Delete);
  settle();
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(tabs(), "Knygos | Nauja knyga") << "what was deleted is closed";
}

TEST_F(MainWindowTest, ANewCategoryIsMadeThroughMenuAndKeysAndStandsInTheList) {
  company_.given_category("B lygis", {{"2005.01.01", 10}});
  open();
  NextWindows windows({[](QWidget& shown_menu) {
                         EXPECT_EQ(entries(shown_menu), "Naujas įrašas");
                         choose(shown_menu, "Naujas įrašas");
                       },
                       [](QWidget&) {
                         type("2007");
                         press(Qt::Key_Tab);
                         type("9.7");
                         press(Qt::Key_Return);
                       }});
  right_click_row(-1);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | Pareigybių kategorija");
  type("Ąžuolo lygis");
  Form& editor = window_->tabs().current_view()->form();
  window_->tabs().current_view()->widget_of(*editor.find("lvwFactors"))->setFocus();
  press(Qt::Key_Insert);
  come_back();
  press(Qt::Key_S, Qt::ControlModifier);
  settle();
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | Ąžuolo lygis");
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos");
  EXPECT_EQ(shown(), "Ąžuolo lygis B lygis");
}

TEST_F(MainWindowTest, AListIsSearchedSortedAndOpenedOnce) {
  for (const char* name : {"Beta", "Ąžuolas", "Alfa"})
    company_.given_category(name, {{"2005.01.01", *name == 'B' ? 9.5 : *name == 'A' ? 11 : 10}});
  open();
  EXPECT_EQ(shown(), "Alfa Ąžuolas Beta");
  QHeaderView& header = *window_->list()->view().header();
  click(header.viewport(), Qt::LeftButton, QPoint(header.sectionViewportPosition(1) + 20, header.height() / 2));
  EXPECT_EQ(shown(), "Beta Ąžuolas Alfa") << "numbers by value: 9,5 10 11";
  press(Qt::Key_F, Qt::ControlModifier);
  type("al");
  EXPECT_EQ(shown(), "Alfa");
  press(Qt::Key_Return);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | Alfa");
  press(Qt::Key_L, Qt::ControlModifier);
  press(Qt::Key_Return);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | Alfa") << "brought forward";
  EXPECT_EQ(window_->tabs().currentIndex(), 1);
}

TEST_F(MainWindowTest, TheDeskTopIsKeptAndItsObjectsOpenFromThere) {
  company_.given_category("A lygis", {});
  open();
  {
    NextWindows menus({[](QWidget& shown_menu) {
      EXPECT_EQ(entries(shown_menu), "Padėti ant darbo stalo|Naujas įrašas|-|Panaikinti|-|Spausdinti");
      choose(shown_menu, "Padėti");
    }});
    right_click_row(0);
  }
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | A lygis");
  window_.reset();
  open();
  ASSERT_EQ(window_->desk_top().count(), 1);
  EXPECT_EQ(window_->desk_top().item(0)->text(), "A lygis");
  window_->desk_top().setCurrentRow(0);
  window_->desk_top().setFocus();
  press(Qt::Key_Return);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | A lygis");
  window_->desk_top().setFocus();
  press(Qt::Key_Delete);
  EXPECT_EQ(window_->desk_top().count(), 0);
  EXPECT_EQ(shown(), "A lygis") << "only taken off the desk top";
}

TEST_F(MainWindowTest, WhatIsNotWrittenIsAskedAboutAndADeletedObjectIsGone) {
  company_.given_category("A lygis", {});
  company_.given_category("B lygis", {});
  open();
  window_->list()->focus_list();
  press(Qt::Key_Return);
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | A lygis");
  type("C");
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | A lygis *");
  {
    NextWindows questions({[](QWidget& box) {
      EXPECT_EQ(told(box), "„A lygis“: pakeitimai neįrašyti. Ar juos išsaugoti?");
      press(Qt::Key_Escape);
    }});
    EXPECT_FALSE(window_->close());
  }
  come_back();
  company_.fail_statements();
  {
    NextWindows questions({[](QWidget&) { press(Qt::Key_Return); },
                           [](QWidget& box) {
                             EXPECT_EQ(told(box), "ryšys nutrūko\nĮrašymas neatliktas!");
                             press(Qt::Key_Return);
                           }});
    press(Qt::Key_W, Qt::ControlModifier);
  }
  company_.heal();
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | A lygis") << "what could not be written does not close";
  come_back();
  for (const auto& [keys, answer] : {std::pair("C", Qt::Key_I), std::pair("D", Qt::Key_N)}) {
    window_->tabs().current_view()->focus_first();
    type(keys);
    NextWindows questions({[key = answer](QWidget&) { press(key, Qt::AltModifier); }});
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(shown(), "B lygis CA lygis") << "written, then not";
    come_back();
    window_->list()->stand_on("O04022001");
    window_->list()->focus_list();
    press(Qt::Key_Return);
  }
  press(Qt::Key_W, Qt::ControlModifier);
  window_->list()->stand_on("O04022001");
  window_->list()->focus_list();
  NextWindows questions({[](QWidget& box) {
    EXPECT_EQ(told(box), "Ar tikrai norite panaikinti?");
    press(Qt::Key_T, Qt::AltModifier);
  }});
  press(Qt::Key_Delete);
  EXPECT_EQ(shown(), "B lygis");
}

TEST_F(MainWindowTest, ARightThatTheUserLacksIsRefused) {
  company_.given_category("A lygis", {});
  store_company_users(company_.application(),
                      {{"vadovė", true}, {"jonas", false, {{"COfficeEmployees", {true, false, false, true, false}}}}});
  open("jonas");
  window_->list()->focus_list();
  {
    NextWindows boxes({[](QWidget&) { press(Qt::Key_T, Qt::AltModifier); },
                       [](QWidget& box) {
                         EXPECT_TRUE(told(box).starts_with("Neturite teisės")) << told(box);
                         press(Qt::Key_Return);
                       }});
    press(Qt::Key_Delete);
  }
  EXPECT_EQ(shown(), "A lygis");
  come_back();
  NextWindows boxes({[](QWidget& error) {
    EXPECT_EQ(told(error), "Neturite teisės tvarkyti naudotojų ir jų teisių: tai leidžiama tik administratoriui.");
    press(Qt::Key_Return);
  }});
  press(Qt::Key_U, Qt::ControlModifier);
  window_->show_type("O0400100");
  EXPECT_NE(told(*window_->list()).find("Neturite teisės peržiūrėti darbuotojų."), std::string::npos);
  EXPECT_EQ(shown(), "");
}

// The sample company, as a new user meets it.
class SampleWindowTest : public MainWindowTest {
 protected:
  SampleWindowTest() { make_sample_company(company_.database()); }
};

TEST_F(SampleWindowTest, AMonthIsCalculatedAndItsPreviewIsOneCommandAwayWithRedCells) {
  open();
  press(Qt::Key_1, Qt::ControlModifier);
  press(Qt::Key_F5);
  EXPECT_NE(told(*window_).find("2008.01: neapskaičiuotas"), std::string::npos) << told(*window_);
  press(Qt::Key_M, Qt::ControlModifier);
  press(Qt::Key_F5);
  EXPECT_NE(told(*window_).find("; pakeista dokumentų: "), std::string::npos) << told(*window_);
  EXPECT_EQ(told(*window_).find("; pakeista dokumentų: 0"), std::string::npos) << told(*window_);
  EXPECT_NE(told(*window_).find("Mėnuo: 2008.01"), std::string::npos) << told(*window_);
  EXPECT_NE(tabs().find("| Mėnuo 2008.01"), std::string::npos) << tabs();
  press(Qt::Key_W, Qt::ControlModifier);
  press(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(told(*window_).find("2008.01: "), std::string::npos) << "nothing to say any more";
  EXPECT_EQ(tabs(), "Pareigybių kategorijos | Valstybės tarnautojų sąrašas");
  press(Qt::Key_F5);
  const auto& list = dynamic_cast<ListView&>(*window_->tabs().current_view()->form().find("lvwRows"));
  ASSERT_GT(list.row_count(), 20U);
  int red = 0;
  for (std::size_t row = 0; row < list.row_count(); ++row) {
    for (std::size_t column = 0; column < list.columns().size(); ++column) {
      red += list.colour(row, column) == CellColour::kRed ? 1 : 0;
    }
  }
  EXPECT_GT(red, 0);
  press(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(window_->tabs().count(), 2) << "brought forward";

  auto* const view = dynamic_cast<QTreeView*>(window_->tabs().current_view()->widget_of(list));
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(view->model()->index(0, 1)).center());
  EXPECT_EQ(application_->desk_top(), std::vector<std::string>{list.tag(0)});
}

// Types into the box of that name of the dialog's form.
void type_into(QWidget& dialog, const char* name, const QString& keys) {
  FormView& view = dynamic_cast<FormDialog&>(dialog).view();
  view.widget_of(*view.form().find(name))->setFocus();
  type(keys);
}

TEST_F(SampleWindowTest, TheSupplementPreviewLeadsToThePersonalEditorsAndBack) {
  open();
  press(Qt::Key_2, Qt::ControlModifier);
  press(Qt::Key_F5);
  FormView& preview = *window_->tabs().current_view();
  const auto& list = dynamic_cast<ListView&>(*preview.form().find("lvwRows"));
  ASSERT_GT(list.row_count(), 20U);
  auto* const rows = dynamic_cast<QTreeView*>(preview.widget_of(list));
  const QPoint first = rows->visualRect(rows->model()->index(0, 1)).center();
  const QString person = QString::fromStdString(list.text(0, 1));
  {
    NextWindows windows({[&](QWidget& charges) {
                           EXPECT_TRUE(said(charges).contains(person));
                           type_into(charges, "lvwExtraCharges", "");
                           press(Qt::Key_Insert);
                           bring_up(charges);
                           press(Qt::Key_Escape);
                         },
                         [](QWidget& charge) {
                           type_into(charge, "lvwKind", "");
                           press(Qt::Key_Up);
                           type_into(charge, "txtSum", "77");
                           press(Qt::Key_Return);
                         }});
    QTest::mouseDClick(rows->viewport(), Qt::LeftButton, {}, first);
  }
  std::string amounts;
  for (std::size_t row = 0; row < list.row_count() && list.tag(row) == list.tag(0); ++row) {
    amounts += list.text(row, list.column("ExtraCharge")) + " ";
  }
  EXPECT_NE(amounts.find("77,00 "), std::string::npos) << amounts;
  come_back();
  {
    NextWindows windows({[](QWidget& shown_menu) {
                           EXPECT_EQ(entries(shown_menu), "Padėti ant darbo stalo|Priedų sąrašas|Tarnybos stažas");
                           choose(shown_menu, "Tarnybos stažas");
                         },
                         [&](QWidget& service) {
                           EXPECT_EQ(service.windowTitle(), "Tarnybos stažas: " + person);
                           type_into(service, "txtYears", "\b40");
                           press(Qt::Key_S, Qt::ControlModifier);
                         }});
    click(rows->viewport(), Qt::RightButton, first);
    QTest::qWait(50);
  }
  EXPECT_GE(std::stoi(list.text(0, list.column("ExperienceYears"))), 40);
}

TEST_F(SampleWindowTest, F4OpensTheCardOfThePersonOfTheRow) {
  open();
  press(Qt::Key_1, Qt::ControlModifier);
  press(Qt::Key_F4);
  EXPECT_EQ(window_->tabs().count(), 2) << "no row, no person";
  press(Qt::Key_F5);
  const auto& list = dynamic_cast<ListView&>(*window_->tabs().current_view()->form().find("lvwRows"));
  auto* const rows = dynamic_cast<QTreeView*>(window_->tabs().current_view()->widget_of(list));
  rows->setFocus();
  press(Qt::Key_Down);
  const std::string person = list.selected_tag(), name = list.text(*list.row_tagged(person), 1);
  press(Qt::Key_F4);
  EXPECT_EQ(window_->tabs().current_view()->form().subject(), person);
  EXPECT_EQ(window_->tabs().tabText(2).toStdString(), name);
  press(Qt::Key_F4);
  EXPECT_EQ(window_->tabs().count(), 3) << "it is their own";
  window_->show_type(kSalaryExtensionType);
  window_->list()->focus_list();
  press(Qt::Key_Down);
  press(Qt::Key_F4);
  const FormView* const card = window_->tabs().current_view();
  ASSERT_NE(card, nullptr);
  EXPECT_TRUE(card->form().subject().starts_with(kEmployeeType)) << "the person of a position";

  const auto month = static_cast<std::int32_t>(Date::from_ymd(2008, 1, 1).serial());
  window_->carry_out(place_of_object(object_key(kWorkedTimeType, month)), MenuPurpose::kOpen);
  const auto& grid = dynamic_cast<Grid&>(*window_->tabs().current_view()->form().find("grdTime"));
  ASSERT_GT(grid.row_count(), 20U);
  press(Qt::Key_F4);
  EXPECT_EQ(window_->tabs().current_view()->form().subject(), grid.row_tag(0));
}

TEST_F(SampleWindowTest, ASecondPreviewIsFilledBesideTheFirst) {
  open();
  const auto rows_of = [](EditorTabs& tabs) {
    return dynamic_cast<ListView&>(*tabs.current_view()->form().find("lvwRows")).row_count();
  };
  EXPECT_FALSE(window_->tabs_beside().isVisible());
  press(Qt::Key_1, Qt::ControlModifier);
  press(Qt::Key_F5);
  for (int again = 0; again < 2; ++again) press(Qt::Key_1, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window_->tabs_beside().count(), 1) << "brought forward the second time";
  EXPECT_EQ(rows_of(window_->tabs_beside()), 0U);
  press(Qt::Key_F5);
  EXPECT_EQ(rows_of(window_->tabs_beside()), rows_of(window_->tabs()));
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(window_->tabs_beside().isVisible()) << "that in which the user is";
  EXPECT_EQ(window_->tabs().count(), 2);
}

TEST(FirstStart, MakesTheSampleCompany) {
  const TemporaryFolder folder;
  const QString place = QString::fromStdString(folder.path("a.quor"));
  FirstStart page("Įmonės nėra.", place, test_edge());
  bring_up(page);
  press(Qt::Key_Return);
  const NextCompany made = page.take_company();
  ASSERT_TRUE(made.database);
  EXPECT_EQ(count(*made.database, "employees"), 30);
  EXPECT_EQ(made.address, place.toStdString());
}

TEST_F(MainWindowTest, TheShippedTablesOfCasesAreTriedInATab) {
  open();
  const auto ask = [&] {
    const NextWindows dialogs({[](QWidget& dialog) { dynamic_cast<QDialog&>(dialog).accept(); }});
    for (QAction* const action : window_->findChildren<QAction*>()) {
      if (action->text() == "&Taisyklių lentelės…") action->trigger();
    }
    settle();
  };
  ask();
  auto* const form = dynamic_cast<RuleTablesForm*>(&window_->tabs().current_view()->form());
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->lblSummary.caption().find("✓ Tinka viskas: "), 0U) << form->lblSummary.caption();
  const int tabs = window_->tabs().count();
  ask();
  EXPECT_EQ(window_->tabs().count(), tabs) << "that folder's tab is there already";
  come_back();
  form->lblSummary.set_caption("");
  window_->tabs().current_view()->widget_of(form->lvwCases)->setFocus();
  press(Qt::Key_F5);
  EXPECT_EQ(form->lblSummary.caption().find("✓ Tinka viskas: "), 0U) << "tried again";
}

}  // namespace
}  // namespace quor
