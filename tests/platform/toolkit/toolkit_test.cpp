#include <gtest/gtest.h>

#include "platform/data/error.h"
#include "platform/toolkit/choice_box.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"
#include "tests/support/acting.h"
#include "tests/support/outcome.h"

namespace quor {
namespace {

// A form of every kind of control that writes down what its handlers hear and what its observers are told.
class Screen : public Form {
 public:
  TextBox box{*this, "txt"};
  DatePicker date{*this, "dtp"};
  CommandButton button{*this, "cmd", "Gerai"};
  ListView list{*this,
                "lvw",
                {{.key = "", .caption = "Nr"}, {.key = "A", .caption = "A", .header_key = "H"}},
                ListView::CheckBoxes::kOnRows};
  PopupMenu menu{*this, "mnu"};
  MenuItem first{*this, menu, "mnuFirst", "Pirmas"};

  Screen() : Form("Langas") {
    box.on_change = [this] { heard += "change "; };
    date.on_change = [this] { heard += "date "; };
    button.on_click = [this] { heard += "click "; };
    list.on_select = [this] { heard += "select "; };
    list.on_double_click = [this] { heard += "double "; };
    list.on_right_click = [this] { menu.open(); };
    list.on_check = [this](std::size_t row) { heard += "check" + std::to_string(row) + " "; };
    first.on_choose = [this] { heard += menu.is_open() ? "first, open " : "first "; };
    menu.on_close = [this] { heard += "closed "; };
  }
  std::string heard;

 protected:
  void opening() override {
    if (fails) throw Error(ErrorKind::kOverflow, "per daug");
    heard += "open ";
  }
  void closing() override { heard += "unload "; }

 public:
  bool fails = false;
};

TEST(Toolkit, TypingReplacesTheSelectionAndMovesTheCaret) {
  const struct {
    const char *name, *text;
    std::size_t start, length;
    std::u32string keys;
    const char* expected;
    std::size_t caret;
  } cases[] = {
      {"at the caret", "ąę", 1, 0, U"ė", "ąėę", 2},
      {"over the selection", "ąžuolas", 1, 3, U"X", "ąXlas", 2},
      {"backspace takes one", "ąž", 2, 0, U"\b", "ą", 1},
      {"backspace takes the selection", "ąžuo", 1, 2, U"\b", "ąo", 1},
      {"backspace at the start", "ąž", 0, 0, U"\b", "ąž", 0},
      {"past the end", "ab", 9, 9, U"c", "abc", 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Screen screen;
    screen.box.set_text(c.text);
    screen.box.select(c.start, c.length);
    for (const char32_t key : c.keys) screen.box.type_key(key);
    EXPECT_EQ(screen.box.text(), c.expected);
    EXPECT_EQ(screen.box.selection_start(), c.caret);
    EXPECT_EQ(screen.heard, screen.box.text() == c.text ? "" : "change ");
  }
}

TEST(Toolkit, TypingIsTakenBackByActsAndDoneAgain) {
  Screen screen;
  TextBox& box = screen.box;
  box.set_text("a");
  box.select(1, 0);
  for (const char32_t key : {U'b', U'c'}) box.type_key(key);
  box.type_key(TextBox::kBackspace);
  box.select(0, 1);
  box.paste("xyz");
  EXPECT_EQ(box.text(), "xyzb");
  for (const char* before : {"ab", "abc", "a", "a"}) {
    box.undo();
    EXPECT_EQ(box.text(), before);
  }
  EXPECT_EQ(box.selection_start(), 1U);
  for (const char* after : {"abc", "ab"}) {
    box.redo();
    EXPECT_EQ(box.text(), after);
  }
  box.type_key(U'!');
  EXPECT_FALSE(box.can_redo());
  box.set_read_only(true);
  box.undo();
  EXPECT_EQ(box.text(), "!b") << "what was selected then is selected again";
  box.set_read_only(false);
  box.set_text("new");
  box.undo();
  EXPECT_EQ(box.text(), "new") << "what the form shows is nothing that the user has done";
}

TEST(Toolkit, AChoiceStaysWhileItsTagIsThere) {
  ControlSet set;
  ChoiceBox box(set, "cbo");
  int heard = 0;
  box.on_change = [&] { ++heard; };
  box.set_items({{"Pirmas", "1"}, {"Antras", "2"}});
  EXPECT_EQ(box.selected_tag(), "");
  box.choose(1);
  box.choose(1);
  box.choose(2);
  EXPECT_EQ(heard, 1);
  box.set_items({{"Kitas", "3"}, {"Dar kitas", "4"}, {"Antras", "2"}});
  EXPECT_EQ(box.selected(), std::optional<std::size_t>(2));
  EXPECT_FALSE(box.select_tag("9"));
  EXPECT_EQ(box.selected_text(), "Antras");
  box.set_items({{"Kitas", "3"}});
  EXPECT_EQ(box.selected(), std::nullopt);
  box.set_enabled(false);
  box.choose(0);
  EXPECT_EQ(heard, 1);
}

TEST(Toolkit, PastedTextGoesThroughTheKeyFilterCharacterByCharacter) {
  Screen screen;
  screen.box.on_key = [](char32_t key) { return key == U'.' ? U',' : key == U'x' ? U'\0' : key; };
  screen.box.paste("1.x5\b\xFF");
  EXPECT_EQ(screen.box.text(), "1,5");
  screen.box.select(1, 0);
  screen.box.erase();
  EXPECT_EQ(screen.box.text(), "15");
}

TEST(Toolkit, ControlsThatCannotBeUsedDoNothing) {
  for (const bool hidden : {false, true}) {
    Screen screen;
    screen.list.add_row("1");
    for (Control* control : screen.controls()) {
      hidden ? control->set_visible(false) : control->set_enabled(false);
    }
    type_and_leave(screen.box, "a");
    screen.box.erase();
    screen.date.pick(Date::from_ymd(2008, 1, 1));
    screen.button.click();
    screen.list.select(0);
    screen.list.double_click(0);
    screen.list.right_click(0);
    screen.list.check(0);
    screen.menu.open();
    screen.first.choose();
    EXPECT_EQ(screen.heard, "");
    EXPECT_FALSE(screen.list.checked(0));
  }
}

TEST(Toolkit, AReadOnlyBoxIsNeverTypedInto) {
  Screen screen;
  screen.box.set_text("17");
  screen.box.set_read_only(true);
  type_and_leave(screen.box, "9");
  screen.box.erase();
  EXPECT_EQ(screen.box.text(), "17");
}

TEST(Toolkit, TheUsersActsRunHandlersAndTheFormsSettersDoNot) {
  Screen screen;
  screen.list.add_row("1");
  screen.box.set_text("a");
  screen.date.set_value(Date::from_ymd(2008, 1, 1));
  screen.list.select_row(0);
  screen.list.set_checked(0, true);
  EXPECT_EQ(screen.heard, "");

  screen.date.pick(Date::from_serial(39448.5));  // the same day, at noon
  EXPECT_EQ(screen.heard, "");
  screen.date.pick(Date::from_ymd(2008, 1, 2));
  screen.button.click();
  screen.list.check(0);
  screen.list.check(5);
  screen.list.select({});
  screen.list.double_click(0);
  EXPECT_EQ(screen.heard, "date click check0 select select double ");
  EXPECT_FALSE(screen.list.checked(0));
}

TEST(Toolkit, AMenuIsClosedWhenTheChosenItemRunsAndTellsItBehindIt) {
  Screen screen;
  screen.first.choose();  // closed
  choose_on(screen.list, {}, screen.first);
  screen.list.right_click({});
  screen.menu.dismiss();
  screen.menu.dismiss();
  EXPECT_EQ(screen.heard, "first closed closed ");
}

TEST(Toolkit, ABulkChangeTellsTheObserverOnce) {
  Screen screen;
  int told = 0;
  screen.list.observe([&](ControlChange) { ++told; });
  {
    const ListView::BulkChange outer(screen.list);
    const ListView::BulkChange inner(screen.list);
    for (int i = 0; i < 100; ++i) screen.list.set_text(screen.list.add_row(std::to_string(i)), 1, "x");
  }
  EXPECT_EQ(told, 1);
  { const ListView::BulkChange nothing(screen.list); }
  EXPECT_EQ(told, 1);
}

TEST(Toolkit, RemovingARowKeepsTheOthersAndTheSelection) {
  Screen screen;
  for (const char* text : {"a", "b", "c"}) screen.list.add_row(text, std::string("tag ") + text);
  screen.list.set_text(2, screen.list.column("A"), "C");
  screen.list.select_row(2);
  screen.list.remove_row(0);
  EXPECT_EQ(shown(screen.list), "b; | c;C");
  EXPECT_EQ(screen.list.selected_tag(), "tag c");
  screen.list.remove_row(1);
  EXPECT_EQ(screen.list.selected_tag(), "");
}

TEST(Toolkit, CellsAndHeadsThatAreNotThereAreNamed) {
  Screen screen;
  EXPECT_EQ(screen.list.header("H"), 1U);
  EXPECT_THROW((void)screen.list.header("A"), Error);
  EXPECT_THROW((void)screen.list.column(""), Error);
  screen.list.add_row("1", "T");
  const std::pair<const char*, std::function<void(ListView&)>> beyond[] = {
      {"text", [](ListView& list) { (void)list.text(1, 0); }},
      {"set_text", [](ListView& list) { list.set_text(0, 2, "x"); }},
      {"tag", [](ListView& list) { (void)list.tag(1); }},
      {"checked", [](ListView& list) { (void)list.checked(1); }},
      {"set_checked", [](ListView& list) { list.set_checked(1, true); }},
      {"set_caption", [](ListView& list) { list.set_caption(2, "x"); }},
      {"remove_row", [](ListView& list) { list.remove_row(1); }}};
  for (const auto& [name, call] : beyond) {
    EXPECT_EQ(outcome([&] { return call(screen.list), true; }), "IndexOutOfRange") << name;
  }
  EXPECT_EQ(screen.list.row_tagged("T"), 0U);
  EXPECT_EQ(screen.list.row_tagged("t"), std::nullopt);
  EXPECT_EQ(screen.find("txt"), &screen.box);
  EXPECT_EQ(screen.find("Txt"), nullptr);
}

TEST(Toolkit, AFormLivesFromLoadingToUnloading) {
  Screen screen;
  screen.fails = true;
  EXPECT_THROW(screen.load(), Error);
  EXPECT_FALSE(screen.loaded());
  screen.fails = false;
  screen.load();
  screen.load();
  screen.on_close_request([&] {
    screen.on_close_request(nullptr);
    screen.unload();
  });
  screen.close_box();
  screen.unload();
  EXPECT_EQ(screen.heard, "open unload ");
  EXPECT_TRUE(screen.close_requested());
  screen.load();
  EXPECT_FALSE(screen.close_requested());
}

}  // namespace
}  // namespace quor
