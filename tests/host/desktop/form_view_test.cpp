// The renderer of forms on a form of every kind of control, used by mouse and keys in a real window.
#include <QCalendarWidget>
#include <QClipboard>
#include <QDateEdit>
#include <QShortcut>

#include "host/desktop/edge/mnemonics.h"
#include "platform/data/error.h"
#include "tests/support/control_screen.h"

namespace quor {
namespace {

TEST_F(FormViewTest, WhatIsTypedGoesThroughTheModel) {
  screen_.box.on_key = [](char32_t key) { return key == U'.' ? U',' : key == U'x' ? U'\0' : key; };
  const struct {
    const char *name, *text;
    int start, length;
    const char *keys, *expected;
    int caret;
  } cases[] = {
      {"at the caret", "aą", 1, 0, "č.5x", "ač,5ą", 4},
      {"over the selection", "ąžuolas", 1, 3, "X", "ąXlas", 2},
      {"backspace takes one", "ąž", 2, 0, "\b", "ą", 1},
      {"backspace takes the selection", "ąžuo", 1, 2, "\b", "ąo", 1},
      {"delete takes the next", "ąž", 0, 0, "\x7f", "ž", 0},
      {"delete at the end", "ąž", 2, 0, "\x7f", "ąž", 2},
      {"behind a character of two units", "𝄞a", 2, 0, "b", "𝄞ba", 3},
  };
  box().setFocus();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    screen_.box.set_text(c.text);
    c.length > 0 ? box().setSelection(c.start, c.length) : box().setCursorPosition(c.start);
    type(c.keys);
    EXPECT_EQ(screen_.box.text(), c.expected);
    EXPECT_EQ(box().text().toStdString(), c.expected);
    EXPECT_EQ(box().cursorPosition(), c.caret);
  }
  QGuiApplication::clipboard()->setText("1.x5\r\n");
  screen_.box.select(0, 9);
  EXPECT_TRUE(box().hasSelectedText());
  press(Qt::Key_V, Qt::ControlModifier);
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_X, Qt::ControlModifier);
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "1,5");
  EXPECT_EQ(screen_.box.text() + " " + box().text().toStdString(), "1,5 1,5") << "taken back";

  screen_.box.set_text("17");
  screen_.box.set_read_only(true);
  heard();
  type("9\b\x7f");
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(box().text(), "17");
  EXPECT_EQ(heard(), "");
}

TEST_F(FormViewTest, TheWidgetsFollowTheForm) {
  EXPECT_EQ(said(view_), "Antraštė | &Pavadinimas | &Kitas | &Data");
  EXPECT_EQ(only<QGroupBox>(view_).title(), "Sąrašas && kita");
  screen_.heading.set_caption("");
  screen_.other.set_visible(false);
  screen_.date.set_enabled(false);
  EXPECT_EQ(said(view_), "&Pavadinimas | &Data") << "a label goes with its field";
  EXPECT_FALSE(widget<QDateEdit>(screen_.date).isEnabled());
  screen_.frame.set_visible(false);
  EXPECT_FALSE(list().isVisible());
  screen_.write.set_caption("Pakeisti");
  screen_.write.set_enabled(false);
  EXPECT_EQ(widget<QPushButton>(screen_.write).text(), "&Pakeisti");
  EXPECT_FALSE(widget<QPushButton>(screen_.write).isEnabled());
  EXPECT_EQ(heard(), "");
  view_.release();
  screen_.box.set_text("po visko");
  widget<QPushButton>(screen_.ok).click();
  EXPECT_EQ(box().text().toStdString() + heard(), "");
}

TEST_F(FormViewTest, TheTabKeyFollowsTheLayout) {
  view_.focus_first();
  QStringList order;
  for (int i = 0; i < 8; ++i) {
    for (const Control* control : screen_.controls()) {
      if (view_.widget_of(*control) == QApplication::focusWidget()) order << QString::fromStdString(control->name());
    }
    press(Qt::Key_Tab);
  }
  EXPECT_EQ(order.join(' ').toStdString(), "txt txtOther dtp lvw cmdWrite cmdFill cmdOK cmdCancel");
}

TEST_F(FormViewTest, ABoxIsLeftBeforeAButtonActsHoweverItIsPressed) {
  box().setFocus();
  EXPECT_EQ(heard(), "enter ");
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(heard(), "leave cmdWrite enter ") << "the focus has stayed";
  press(Qt::Key_F5);
  EXPECT_EQ(heard(), "leave cmdFill enter ");
  press(Qt::Key_Return);
  EXPECT_EQ(heard(), "leave cmdOK enter ");
  press(Qt::Key_Escape);
  EXPECT_EQ(heard(), "leave cmdCancel enter ");
  press(Qt::Key_R, Qt::AltModifier);
  QTest::qWait(200);  // a button pressed by its letter is seen to go down
  EXPECT_EQ(heard(), "leave cmdWrite enter ");
  click(&widget<QPushButton>(screen_.ok));
  EXPECT_EQ(heard(), "leave cmdOK ");
  press(Qt::Key_Return);
  EXPECT_EQ(heard(), "cmdOK ");
  screen_.write.set_enabled(false);
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(heard(), "");
  EXPECT_EQ(widget<QPushButton>(screen_.write).toolTip() + widget<QPushButton>(screen_.ok).toolTip(), "Ctrl+SEnter");
}

TEST_F(FormViewTest, ADateIsTypedOrTakenFromALithuanianCalendar) {
  auto& date = widget<QDateEdit>(screen_.date);
  screen_.date.set_value(Date::from_ymd(2008, 1, 31));
  EXPECT_EQ(date.text(), "2008.01.31");
  date.setFocus();
  heard();
  date.setSelectedSection(QDateTimeEdit::YearSection);
  type("2006");
  EXPECT_EQ(heard(), "") << "not before it is whole";
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(screen_.date.value(), Date::from_ymd(2006, 1, 31));
  EXPECT_EQ(heard(), "date cmdWrite ");
  int commands = 0;
  QObject::connect(new QShortcut(Qt::CTRL | Qt::Key_U, &view_), &QShortcut::activated, [&] { ++commands; });
  press(Qt::Key_U, Qt::ControlModifier);
  EXPECT_EQ(date.text(), "2006.01.31");
  EXPECT_EQ(commands, 1) << "a key of the windows, not of the field";
  EXPECT_EQ(date.calendarWidget()->firstDayOfWeek(), Qt::Monday);
  EXPECT_EQ(date.calendarWidget()->locale().standaloneMonthName(1), "sausis");
  date.setDate(QDate(2006, 2, 1));
  EXPECT_EQ(screen_.date.value(), Date::from_ymd(2006, 2, 1));
}

TEST_F(FormViewTest, AnErrorIsShownAndTheFormLivesOn) {
  screen_.fill.on_click = [] { throw Error(ErrorKind::kOverflow, "reikšmė „99999“ per didelė"); };
  screen_.write.on_click = [] { throw 1; };
  const auto read_and_close = [](const char* text) {
    return [text](QWidget& window) {
      EXPECT_EQ(said(window), text);
      press(Qt::Key_Return);
    };
  };
  NextWindows errors({[](QWidget& window) {
                        EXPECT_EQ(said(window), "Reikšmė „99999“ per didelė");
                        press(Qt::Key_K, Qt::AltModifier);
                        QTest::qWait(200);
                        EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("quor::Error 1")) << "for the maker";
                        press(Qt::Key_Return);
                      },
                      read_and_close("Nenumatyta klaida.")});
  box().setFocus();
  press(Qt::Key_F5);
  press(Qt::Key_S, Qt::ControlModifier);
  QTest::qWait(20);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  type("a");
  EXPECT_EQ(screen_.box.text(), "a");
}

TEST(Edge, CatchesWhatNoActHasCaught) {
  QWidget window;
  bring_up(window);
  NextWindows errors({[](QWidget& dialog) {
    EXPECT_EQ(said(dialog), "Nenumatyta klaida: įvyko");
    press(Qt::Key_Escape);
  }});
  QMetaObject::invokeMethod(
      &window, [] { throw std::runtime_error("įvyko"); }, Qt::QueuedConnection);
  QTest::qWait(100);
  bool prepared = false;
  test_edge().before_acts([&] {
    prepared = true;
    throw Error(ErrorKind::kOverflow, "duomenų nėra");
  });
  bool acted = false;
  EXPECT_TRUE(test_edge().act(&window, [&] { acted = true; }));
  EXPECT_TRUE(prepared && acted);
  test_edge().before_acts(nullptr);
}

TEST(Mnemonics, AreUniqueAndLeaveTheCaptionAsItIs) {
  const std::vector<QString> captions = {"Įrašyti", "Atšaukti", "Nauja kategorija", "A", "R & D", "ąč", "Ąč", "", "5"};
  QStringList marked;
  for (const QString& caption : with_mnemonics(captions)) marked << caption;
  EXPECT_EQ(marked.join('|').toStdString(), "Į&rašyti|&Atšaukti|&Nauja kategorija|A|R && &D|&ąč|Ą&č||5");
}

}  // namespace
}  // namespace quor
