// What the plug-in asks of a person, asked in dialogs; and the category editor in its window, on a real company.
#include "host/desktop/answers/desktop_application.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTreeView>
#include <gtest/gtest.h>

#include "host/desktop/answers/form_dialog.h"
#include "host/desktop/answers/object_picker.h"
#include "host/desktop/answers/report_preview.h"
#include "platform/toolkit/text_box.h"
#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

class DesktopApplicationTest : public testing::Test {
 protected:
  TestCompany company_;
  DesktopApplication application_{
      company_.company(), {.title = "Testas", .user = "testuotoja", .today = Date::from_ymd(2008, 1, 31)}, test_edge()};
};

TEST_F(DesktopApplicationTest, ABoxIsAnsweredByItsLithuanianButtons) {
  const struct {
    BoxButtons buttons;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    const char* shown;
    BoxAnswer answer;
  } cases[] = {
      {BoxButtons::kOk, Qt::Key_Return, Qt::NoModifier, "&Gerai", BoxAnswer::kOk},
      {BoxButtons::kOk, Qt::Key_Escape, Qt::NoModifier, "&Gerai", BoxAnswer::kOk},
      {BoxButtons::kYesNo, Qt::Key_Return, Qt::NoModifier, "&Taip &Ne", BoxAnswer::kNo},
      {BoxButtons::kYesNo, Qt::Key_Escape, Qt::NoModifier, "&Taip &Ne", BoxAnswer::kNo},
      {BoxButtons::kYesNo, Qt::Key_T, Qt::AltModifier, "&Taip &Ne", BoxAnswer::kYes},
      {BoxButtons::kOkCancel, Qt::Key_Return, Qt::NoModifier, "&Gerai &Atšaukti", BoxAnswer::kCancel},
      {BoxButtons::kOkCancel, Qt::Key_G, Qt::AltModifier, "&Gerai &Atšaukti", BoxAnswer::kOk},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.shown);
    NextWindows boxes({[&](QWidget& window) {
      auto& box = dynamic_cast<QMessageBox&>(window);
      QStringList buttons;
      for (const QAbstractButton* button : box.buttons()) buttons << button->text();
      EXPECT_EQ(buttons.join(' ').toStdString(), c.shown);
      EXPECT_EQ(box.text(), "Pirma <b>eilutė</b>\nAntra");
      press(c.key, c.modifiers);
    }});
    EXPECT_EQ(application_.MessageBox("Pirma <b>eilutė</b>\r\nAntra", BoxIcon::kQuestion, c.buttons, "Testas"),
              c.answer);
  }
}

TEST_F(DesktopApplicationTest, AnObjectIsPickedByTypingAPartOfItsName) {
  for (const char* name : {"Ąžuolaitė Žydrė", "Žąsinas Ąžuolas", "Petras Petraitis"}) company_.given_employee(name);
  const struct {
    const char* current;
    const char* typed;
    const char* keys;  // D(own), R(eturn), E(scape)
    const char* left;
    const char* picked;
  } cases[] = {
      {"", "", "R", "Iš viso: 3", "O04001001"},  // in Lithuanian order
      {"O04001003", "", "R", "Iš viso: 3", "O04001003"},
      {"O04001003", "", "E", "Iš viso: 3", ""},
      {"", "ąŽUOL", "DR", "Rasta: 2 iš 3", "O04001002"},
      {"", "ąžu žydr", "R", "Rasta: 1 iš 3", "O04001001"},
      {"", "zasin azuol", "R", "Rasta: 1 iš 3", "O04001002"},
      {"O04001003", "pet", "R", "Rasta: 1 iš 3", "O04001003"},
      {"", "nėra", "RE", "Rasta: 0 iš 3", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.typed);
    NextWindows pickers({[&](QWidget& picker) {
      EXPECT_EQ(picker.windowTitle(), "Darbuotojai");
      type(QString(c.typed));
      EXPECT_EQ(said(picker), c.left);
      for (const char* key = c.keys; *key != 0; ++key) {
        press(*key == 'D' ? Qt::Key_Down : *key == 'R' ? Qt::Key_Return : Qt::Key_Escape);
      }
    }});
    EXPECT_EQ(application_.SelectObject("O0400100", c.current, "").Identity, c.picked);
  }
}

class Question : public Form {
 public:
  TextBox box{*this, "txt"};
  CommandButton ok{*this, "cmdOK", "Gerai", ButtonRole::kAccept};
  Question() : Form("Klausimas") {
    set_layout(column({field("Atsakymas", box), row({ok})}));
    ok.on_click = [this] {
      answered = box.text();
      close();
    };
  }
  std::string answered;
  bool has_unsaved_changes() const override { return !box.text().empty() && answered.empty(); }
};

TEST_F(DesktopApplicationTest, AModalFormIsShownUntilItIsClosedAndAsksBeforeTypedTextIsLost) {
  Question question;
  {
    NextWindows windows({[&](QWidget&) {
      EXPECT_TRUE(question.loaded());
      type("taip");
      press(Qt::Key_Return);
    }});
    application_.show_modal(question);
  }
  EXPECT_EQ(question.answered, "taip");
  EXPECT_FALSE(question.loaded());

  const struct {
    const char* name;
    std::vector<Qt::Key> keys;  // with Alt; Esc without
    const char* answered;
  } cases[] = {
      {"goes back, then gives it up", {Qt::Key_Escape, Qt::Key_N}, ""},
      {"has it written", {Qt::Key_I}, "taip"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    question.answered.clear();
    question.box.set_text("taip");
    std::vector<NextWindows::Act> acts = {[&](QWidget& dialog) {
      for (std::size_t each = 0; each < c.keys.size(); ++each) {
        EXPECT_TRUE(dialog.isVisible() && question.loaded());
        press(Qt::Key_Escape);
      }
    }};
    for (const Qt::Key key : c.keys) {
      acts.emplace_back([key](QWidget& box) {
        EXPECT_EQ(said(box), "„Klausimas“: pakeitimai neįrašyti. Ar juos išsaugoti?");
        press(key, key == Qt::Key_Escape ? Qt::NoModifier : Qt::AltModifier);
      });
    }
    NextWindows windows(acts);
    application_.show_modal(question);
    EXPECT_FALSE(question.loaded());
    EXPECT_EQ(question.answered, c.answered);
  }
}

TEST_F(DesktopApplicationTest, AReportIsPreviewedAndKept) {
  const auto report = application_.NewListReport("Įmonė", "O0402200");
  for (const char* line : {" Tarnautojų sąrašas", "2008.02", "Ūkio / IT skyrius"}) report->AddHeading(line);
  report->AddColumn("A", "Pavadinimas", 6, CellAlignment::kLeft);
  report->AddColumn("B", "Suma", 2, CellAlignment::kRight);
  for (int line = 0; line < 200; ++line) {
    report->AddLine();
    report->SetCell("A", "Eilutė", CellColour::kRed);
  }
  const QTemporaryDir folder;
  const auto content = [&](const char* name) {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
  };
  NextWindows windows({[&](QWidget& window) {
                         auto& preview = dynamic_cast<ReportPreview&>(window);
                         EXPECT_GT(preview.pages(), 2);
                         preview.save_pdf(folder.filePath("a.pdf"));
                         preview.save_csv(folder.filePath("a.csv"), kSpreadsheetCsv);
                         press(Qt::Key_S, Qt::ControlModifier);
                         test_edge().act(&preview,
                                         [&] { preview.save_csv(folder.filePath("nėra/a.csv"), kProgramCsv); });
                         preview.close();
                       },
                       [](QWidget& window) {
                         auto& dialog = dynamic_cast<QFileDialog&>(window);
                         EXPECT_EQ(QFileInfo(dialog.selectedFiles().value(0)).fileName(),
                                   "Tarnautojų sąrašas 2008-02 Ūkio - IT skyrius.pdf");
                         dialog.reject();
                       },
                       [&](QWidget& error) {
                         EXPECT_TRUE(said(error).contains("nėra/a.csv“")) << said(error).toStdString();
                         press(Qt::Key_Return);
                       }});
  report->Show();
  EXPECT_TRUE(content("a.pdf").startsWith("%PDF-"));
  EXPECT_TRUE(content("a.csv").startsWith("\xEF\xBB\xBFPavadinimas;Suma\r\nEilutė;"));
}

// The screen answers a pointer that is moved with an event of the user.
TEST_F(DesktopApplicationTest, WhatTheUserDoesWaitsWhilePendingEventsRun) {
  class Watched : public QWidget {
   public:
    int moves = 0, painted = 0;
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
    void paintEvent(QPaintEvent*) override { ++painted; }
  } window;
  window.setMouseTracking(true);
  window.resize(300, 300);
  bring_up(window);
  for (const int place : {50, 100, 150}) QCursor::setPos(window.mapToGlobal(QPoint(place, place)));
  window.moves = window.painted = 0;
  window.update();
  QElapsedTimer since;
  for (since.start(); since.elapsed() < 100;) application_.run_pending_events();
  EXPECT_EQ(window.moves, 0);
  EXPECT_GT(window.painted, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.moves > 0; }));
}

TEST(QtTexts, AreLithuanian) {
  const struct {
    const char *context, *source, *shown;
  } cases[] = {{"QPlatformTheme", "Cancel", "Atšaukti"},
               {"QTabBar", "Scroll Left", "Slinkti kairėn"},
               {"QFileDialog", "File &name:", "&Failo vardas:"},
               {"QShortcut", "Ctrl", "Ctrl"}};
  for (const auto& c : cases) EXPECT_EQ(QCoreApplication::translate(c.context, c.source), c.shown);
}

// The editor as the plug-in makes it, in a dialog.
class CategoryWindow : public DesktopApplicationTest {
 protected:
  void open(const std::string& key, const char* entry) {
    application_.load_plugin(VELMORA_PLUGIN);
    editor_ = application_.GetQuorObjectUI("O0402200")->ClickMenu(key, entry, key, "").EditorForm;
    ASSERT_TRUE(editor_);
    editor_->load();
    dialog_ = std::make_unique<FormDialog>(*editor_, test_edge(), nullptr);
    bring_up(*dialog_);
  }
  QWidget* widget(const char* name) { return dialog_->view().widget_of(*editor_->find(name)); }
  std::string stored() {
    return rows_text(*company_.database().read(
        "SELECT c.name, r.date_from, r.factor FROM categories c LEFT JOIN category_rows r ON r.category_id = c.id"
        " ORDER BY c.id, r.date_from",
        {{"Name", FieldType::kText}, {"From", FieldType::kDate}, {"Factor", FieldType::kDouble}}));
  }

  std::shared_ptr<Form> editor_;
  std::unique_ptr<FormDialog> dialog_;
};

TEST_F(CategoryWindow, ANewCategoryIsTypedWithARowAndWritten) {
  open("O0402200K", "1");
  EXPECT_EQ(said(*dialog_), "Nauja pareigybių kategorija | &Pavadinimas");
  type("Ąžuolo lygis");
  widget("lvwFactors")->setFocus();
  NextWindows rows({[](QWidget& row) {
    type("2007");
    press(Qt::Key_Tab);
    type("9.7");
    press(Qt::Key_Return);
    EXPECT_FALSE(row.isVisible());
  }});
  press(Qt::Key_Insert);
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(stored(), "Ąžuolo lygis;2007.01.31;9,7");
  EXPECT_EQ(said(*dialog_), "Pareigybių kategorija | &Pavadinimas");
}

TEST_F(CategoryWindow, AFailedWriteIsToldAndWorksOnceTheCompanyIsBack) {
  const std::int32_t id = company_.given_category("A lygis", {});
  open("O0402200" + std::to_string(id), "0");
  company_.fail_statements();
  type("B");
  NextWindows boxes({[](QWidget& box) {
    EXPECT_EQ(said(box), "ryšys nutrūko\nĮrašymas neatliktas!");
    press(Qt::Key_Return);
  }});
  press(Qt::Key_S, Qt::ControlModifier);
  company_.heal();
  type("C");
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_NE(stored().find("C"), std::string::npos) << stored();
}

}  // namespace
}  // namespace quor
