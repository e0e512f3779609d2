// What the application does for the plug-in's editors and menus when nobody sits at a window.
#include <gtest/gtest.h>

#include "platform/toolkit/form.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

using Texts = std::vector<std::string>;

// Writes down what becomes of it; its opening or closing may fail, its opening may want to be closed at once.
class TracedForm : public Form {
 public:
  explicit TracedForm(std::string* trace = nullptr) : Form("Forma"), trace_(trace) {}
  std::string failing;
  bool closes_at_once = false;
  void press_close() { close(); }

 private:
  void opening() override {
    said("load ");
    if (failing == "load") throw Error(ErrorKind::kOverflow, "neatsiveria");
    if (closes_at_once) close();
  }
  void closing() override { said("unload "); }
  void said(const char* what) {
    if (trace_ != nullptr) *trace_ += what;
  }
  std::string* trace_;
};

// Chooses what it is told to and says what it was offered; tells when the pointer changes.
class WindowApplication : public TestApplication {
 public:
  using TestApplication::TestApplication;
  std::string chosen, offered, pointers;

 private:
  std::string choose_object(Recordset& list, const std::string& current, const std::string& title) override {
    offered = title + "/" + current + "/" + walked(list, "OIDR");
    list.Filter("OIDR = 'nėra'");  // what it leaves behind is no matter
    return chosen;
  }
  void busy_changed(bool busy) override { pointers += busy ? "on " : "off "; }
};

TEST(SelectingObjects, TheChoiceIsAnsweredByKeyAndGuidAndName) {
  TestCompany company;
  company.given_constant("MMA", {});
  company.given_category("A lygis", {});
  company.given_category("B lygis", {});
  company.given_settings({.from = "2005.01.01"});
  company.given_position({.employee = company.given_employee("Pirmoji")});
  for (const char* table : {"categories", "settings"}) {
    company.database().execute(std::string("UPDATE ") + table + " SET guid = 'G' || id");
  }
  const struct {
    const char *type, *pick, *answer;
  } cases[] = {
      {"O0402200", "", ";"},
      {"O0402200", "O04022002", "O04022002#G2;B lygis"},
      {"O0402200", "O04022002#G9", "O04022002#G2;B lygis"},  // the stored GUID counts
      {"O0402300", "O04023001", "O04023001#G1;2005.01.01"},
      {"O0400600", "O04006001", "O04006001;Konstanta MMA"},
      {"O0400100", "O04001001", "O04001001;Pirmoji"},
      {"O0001604", "O00016041", "O00016041;Skyrius"},
      {"O0402000", "O04020001", "O04020001;Pirmoji"},
      {"O0402200", "O04022003", ";Sąraše „Pareigybių kategorijos“ nėra objekto „O04022003“."},
      {"O0402200", "O04023001", ";Sąraše „Pareigybių kategorijos“ nėra objekto „O04023001“."},
      {"O0402200", "' OR", ";Sąraše „Pareigybių kategorijos“ nėra objekto „' OR“."},
      {"O9999999", "O04022001", ";Tipo „O9999999“ objektų sąrašo nėra."},
  };
  for (const auto& c : cases) {
    TestApplication application(company.company(), {.title = "Testas", .pick = c.pick});
    const PickedObject picked = application.SelectObject(c.type, "", "");
    std::string answer = picked.Identity + ";" + picked.Name;
    for (const ShownBox& box : application.shown_boxes()) answer += box.text;
    EXPECT_EQ(answer, c.answer) << c.type << " " << c.pick;
  }
  WindowApplication windows(company.company(), {});
  windows.chosen = "O04022001";
  EXPECT_EQ(windows.SelectObject("O0402200", "O04022002#G2", "").Identity, "O04022001#G1");
  EXPECT_EQ(windows.offered, "Pareigybių kategorijos/O04022002/O04022001 O04022002");
}

TEST(ModalForms, AreLoadedUntilTheUserOrTheFormClosesThemWhateverFails) {
  TestCompany company;
  TestApplication& application = company.application();
  std::string trace;
  const auto shown = [&](TracedForm& form) {
    trace.clear();
    const std::string error = error_text([&] { application.show_modal(form); });
    EXPECT_FALSE(form.loaded());
    return trace + error;
  };
  TracedForm form(&trace), nested(&trace);
  EXPECT_EQ(shown(form), "load unload no error") << "nobody acts";
  EXPECT_TRUE(form.close_requested());
  application.on_modal([&](Form& each) {
    trace += each.loaded() && !each.close_requested() ? "act " : "?";
    if (&each == &form) application.show_modal(nested);
    form.press_close();
  });
  EXPECT_EQ(shown(form), "load act load act unload unload no error");
  application.on_modal([&](Form&) { throw Error(ErrorKind::kOverflow, "per daug"); });
  EXPECT_EQ(shown(form), "load unload per daug");
  form.failing = "load";
  EXPECT_EQ(shown(form), "load neatsiveria");
  form.failing = "";
  form.closes_at_once = true;
  EXPECT_EQ(shown(form), "load unload no error") << "there is nothing left to act on";
}

TEST(Hourglass, IsShownFromTheFirstScopeToTheLast) {
  TestCompany company;
  WindowApplication application(company.company(), {});
  auto outer = application.hourglass();
  auto inner = application.hourglass();
  outer.reset();
  EXPECT_EQ(application.busy(), 1);
  EXPECT_EQ(application.pointers, "on ");
  inner.reset();
  EXPECT_EQ(application.busy(), 0);
  outer = application.hourglass();
  EXPECT_EQ(application.pointers, "on off on ");
}

TEST(OpenObjects, AnEditorIsFoundByTheObjectThatItShowsNow) {
  TestCompany company;
  OpenObjects open;
  TracedForm first, second, third;
  std::string told;
  open.on_written([&](const std::string& key) { told += "written " + key + (open.find(key) == nullptr ? "? " : " "); });
  open.on_left([&](const std::string& object, Form&) { told += "left " + object + " "; });
  const auto write = [&](const char* key) {
    const auto object = company.application().NewStandardObjectUIO("O0402200");
    object->OIDR(key);
    open.written(*object);
  };
  open.enter("O04022005", first);
  open.enter("O0402200", second);
  open.enter("", third);
  EXPECT_EQ(open.find("O04022005"), &first);
  EXPECT_EQ(open.find("O0402200"), nullptr);
  EXPECT_EQ(error_text([&] { open.enter("O04022005", third); }), "Objektas „O04022005“ jau atvertas kitame lange.");

  // A new object is that of the editor that the user acts in.
  open.activate(second);
  write("O04022006");
  write("O04022005");
  EXPECT_EQ(open.object_of(second) + open.object_of(third), "O04022006");
  write("O04023001");
  EXPECT_EQ(open.find("O04023001"), &third);
  write("O04023002");
  EXPECT_EQ(told, "written O04022006 written O04022005 written O04023001 written O04023002? ");

  EXPECT_TRUE(open.may_leave("O04022005"));
  open.on_may_leave([](const std::string& object) { return object != "O04022005"; });
  EXPECT_FALSE(open.may_leave("O04022005"));
  told.clear();
  open.left("O04022006", second);
  EXPECT_EQ(told, "left O04022006 ");
  EXPECT_EQ(open.find("O04022006"), nullptr);
  write("O04022007");
  EXPECT_EQ(open.find("O04022007"), &second) << "the new object that it turned to";
  open.leave(second);
  EXPECT_EQ(open.find("O04022007"), nullptr);
}

TEST(ObjectUIs, ComeFromThePluginOrFromTheHostAndAreKept) {
  TestCompany company;
  company.given_employee("Pirmoji");
  company.database().execute("UPDATE company SET name = 'Įstaiga'");
  TestApplication& application = company.application();
  EXPECT_EQ(rows_text(*application.CompanyRecord()), "Įstaiga");
  EXPECT_EQ(application.GetQuorObjectUI("O0402100"), nullptr) << "nobody has it yet";
  const auto before = application.GetQuorObjectUI("O0402300");
  ASSERT_TRUE(before) << "the host lists them";
  application.load_plugin(VELMORA_PLUGIN);
  const auto settings = application.GetQuorObjectUI("O0402300");
  EXPECT_NE(settings, before);
  EXPECT_EQ(settings, application.GetQuorObjectUI("O0402300"));
  EXPECT_EQ(settings->GetIconsTable().front().Key, "OfficeEmployeeSettings");
  EXPECT_EQ(application.GetQuorObjectUI("O9999999"), nullptr);

  const auto people = application.GetQuorObjectUI("O0400100");
  ASSERT_TRUE(people && people->BO());
  EXPECT_EQ(people->GetQuorObjectList("O0400100", "", "")->RecordCount(), 1);
  const auto captions = [&](const char* context) {
    std::string text;
    for (const MenuEntry& entry : people->GetMenu(context, "", "")) text += entry.Caption + ";";
    return text;
  };
  EXPECT_EQ(captions("O0400100K"), "Naujas darbuotojas;");
  EXPECT_TRUE(people->GetMenu(people->BO()->GroupContext(), "", "").empty());
  EXPECT_EQ(captions("O04001001"), "Atverti;Naujas darbuotojas;Panaikinti;-;Padėti ant darbo stalo;");
  const auto menu = people->GetMenu("O04001001", "", "");
  EXPECT_EQ(people->ClickMenu("O04001001", menu.back().Identifier, "", "").Action, ClickAction::kNothing);
  EXPECT_FALSE(people->AddToDeskTopQuorObject("O0400100"));
  company.given_document(1);
  EXPECT_TRUE(people->DeleteQuorObject("O04001001"));
  EXPECT_EQ(application.desk_top(), Texts{"O04001001"});
}

class DeskTopTest : public testing::TestWithParam<Backend> {};
ON_EVERY_DATABASE(DeskTopTest);

TEST_P(DeskTopTest, KeepsTheObjectsOfEachUserInTheirOrder) {
  TestCompany company(GetParam());
  TestApplication ona(company.company(), {.user = "Ona"}), jonas(company.company(), {.user = "Jonas"});
  for (const char* key : {"O04001002", "O04001001", "O04001002", "O0400100", ""}) ona.place_on_desk_top(key, nullptr);
  jonas.place_on_desk_top("O04001002", nullptr);
  EXPECT_EQ(ona.desk_top(), (Texts{"O04001002", "O04001001"})) << "each once, and only what is stored";
  ona.remove_from_desk_top("O04001002");
  ona.remove_from_desk_top("O04001009");
  EXPECT_EQ(jonas.desk_top(), Texts{"O04001002"});
  ona.place_on_desk_top("O04001002", nullptr);
  EXPECT_EQ(ona.desk_top(), (Texts{"O04001001", "O04001002"}));
}

}  // namespace
}  // namespace quor
