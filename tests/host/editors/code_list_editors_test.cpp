// The forms of constants, departments and codes, acted on as a person would.
#include <gtest/gtest.h>

#include "frame/contract/host_types.h"
#include "host/editors/code_editor.h"
#include "host/editors/constant_editor.h"
#include "host/editors/constant_value_editor.h"
#include "host/editors/department_editor.h"
#include "host/editors/office_editor.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

// The form that the type's menu entry opens, loaded.
template <typename Editor>
std::shared_ptr<Editor> opened(Application& application, const std::string& object) {
  const std::string entry = carries_object(object) ? "1" : "2";
  const auto result = application.GetQuorObjectUI(type_of_key(object))->ClickMenu(object, entry, object, "");
  auto editor = std::dynamic_pointer_cast<Editor>(result.EditorForm);
  if (editor) editor->load();
  return editor;
}

class CodeListEditors : public testing::TestWithParam<Backend> {
 protected:
  // Types into the dialog of a value when it comes up.
  void enter_value(const char* from, const char* value) {
    company_.application().on_modal([=](Form& form) {
      auto& dialog = dynamic_cast<ConstantValueEditor&>(form);
      type_and_leave(dialog.txtDateFrom, from);
      type_and_leave(dialog.txtValue, value);
      dialog.cmdOK.click();
      if (!dialog.close_requested()) dialog.cmdCancel.click();
    });
  }
  std::string last_box() { return company_.application().shown_boxes().back().text; }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(CodeListEditors);

TEST_P(CodeListEditors, AConstantGetsANewValueFromADateOn) {
  company_.given_constant("MMA", {{"2005.01.01", 115}, {"2007.01.01", 125}});
  const auto editor = opened<ConstantEditor>(company_.application(), "O04006001");
  ASSERT_TRUE(editor);
  EXPECT_EQ(shown(editor->lvwValues), "2007.01.01;;125 | 2005.01.01;2006.12.31;115");
  EXPECT_FALSE(editor->cmdWrite.enabled());

  enter_value("2008.01.01", "130.5");
  choose_on(editor->lvwValues, {}, editor->mnuNew);
  EXPECT_EQ(shown(editor->lvwValues), "2008.01.01;;130,5 | 2007.01.01;2007.12.31;125 | 2005.01.01;2006.12.31;115");
  EXPECT_EQ(editor->lvwValues.selected(), 0U) << "the new one";
  EXPECT_TRUE(editor->has_unsaved_changes());
  EXPECT_EQ(count(company_.database(), "constant_values"), 2) << "nothing is stored before it is written";
  enter_value("2007.01.01", "1000000,5");
  editor->lvwValues.double_click(0);
  EXPECT_EQ(last_box(),
            "Reikšmė: „1000000,5“ – leidžiama daugiau kaip 0 iki 1000000.\r\nReikšmė nuo 2007.01.01 jau yra.");
  company_.application().answer(BoxAnswer::kYes);
  choose_on(editor->lvwValues, 2, editor->mnuDelete);
  EXPECT_EQ(shown(editor->lvwValues), "2008.01.01;;130,5 | 2007.01.01;2007.12.31;125");
  type_and_leave(editor->txtName, "");
  editor->cmdWrite.click();
  EXPECT_EQ(last_box(), "Pavadinimas: neįrašyta.");
  type_and_leave(editor->txtName, "Bazinė alga");
  editor->cmdWrite.click();
  EXPECT_FALSE(editor->has_unsaved_changes());
  EXPECT_EQ(editor->subject(), "O04006001");
  EXPECT_EQ(rows_text(*company_.database().read(
                "SELECT t.name, v.date_from, v.value FROM constant_values v JOIN constant_types t"
                " ON t.id = v.constant_type_id ORDER BY v.date_from",
                {{"n", FieldType::kText}, {"d", FieldType::kDate}, {"v", FieldType::kDouble}})),
            "Bazinė alga;2007.01.01;125 | Bazinė alga;2008.01.01;130,5");
}

TEST_P(CodeListEditors, WhatIsRefusedStaysAsItWasTyped) {
  company_.given_constant("MMA", {{"2005.01.01", 115}});
  company_.given_settings({.from = "2005.01.01", .month_tariff = 1});
  const auto editor = opened<ConstantEditor>(company_.application(), "O04006001");
  ASSERT_TRUE(editor);
  enter_value("2006.01.01", "120");
  editor->lvwValues.double_click(0);
  editor->cmdWrite.click();
  EXPECT_EQ(last_box(),
            "Įrašymas neatliktas!\r\nNustatymai nuo 2005.01.01 liktų be tarifo: bazinė mėnesinė alga „MMA“ datai "
            "2005.01.01 neturi reikšmės: pirmoji galioja nuo 2006.01.01.");
  EXPECT_EQ(shown(editor->lvwValues), "2006.01.01;;120");
  EXPECT_TRUE(editor->has_unsaved_changes());
  editor->cmdCancel.click();
  EXPECT_EQ(shown(editor->lvwValues), "2005.01.01;;115");
  company_.database().execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (39448, '', '')");
  enter_value("2008.01.15", "130");
  editor->cmdNewValue.click();
  editor->cmdWrite.click();
  EXPECT_EQ(last_box(), "Įrašymas neatliktas!\r\nPakeitimas siekia uždarytą mėnesį 2008.01.") << "after the question";
  EXPECT_EQ(count(company_.database(), "constant_values"), 1);
  editor->cmdCancel.click();
  EXPECT_FALSE(editor->has_unsaved_changes());

  company_.given_rights(company_.given_user("testuotoja"), "O0400600", "v");
  company_.company().forget();
  const auto viewer = opened<ConstantEditor>(company_.application(), "O04006001");
  ASSERT_TRUE(viewer);
  viewer->lvwValues.right_click(0);
  EXPECT_TRUE(viewer->txtCode.read_only() && !viewer->mnuNew.enabled() && !viewer->mnuEdit.enabled());
  EXPECT_FALSE(opened<ConstantEditor>(company_.application(), "O0400600"));
  EXPECT_EQ(last_box(), "Neturite teisės kurti darbo užmokesčio konstantų.");
}

TEST_P(CodeListEditors, ADepartmentIsMovedBelowAnother) {
  PickingApplication picking(company_.company(), {.title = "Testas", .user = "O", .host_types = host_editors()});
  company_.given_department("Viršus");
  company_.given_department("Apačia", 1);
  const auto parents = [&] {
    return rows_text(
        *company_.database().read("SELECT name, parent_id, row_version FROM departments ORDER BY id",
                                  {{"n", FieldType::kText}, {"p", FieldType::kInt32}, {"v", FieldType::kInt32}}));
  };
  const auto below = opened<DepartmentEditor>(picking, "O00016042");
  ASSERT_TRUE(below);
  EXPECT_EQ(below->txtParent.text(), "Viršus");
  below->cmdNoParent.click();
  below->cmdWrite.click();
  EXPECT_EQ(parents(), "Viršus;Null;1 | Apačia;Null;2");
  const auto top = opened<DepartmentEditor>(picking, "O00016041");
  picking.picked = {"O00016042", "Apačia"};
  top->cmdChooseParent.click();
  top->cmdWrite.click();
  EXPECT_EQ(parents(), "Viršus;2;2 | Apačia;Null;2");
  below->cmdNoParent.click();
  EXPECT_FALSE(below->cmdNoParent.enabled());
  picking.picked = {"O00016041", "Viršus"};
  below->cmdChooseParent.click();
  below->cmdWrite.click();
  EXPECT_EQ(picking.boxes().back(),
            "exclamation, ok, Testas: Įrašymas neatliktas!\r\nPadalinys „Apačia“ negali priklausyti pats sau nei savo "
            "žemesniam padaliniui.");
  EXPECT_EQ(parents(), "Viršus;2;2 | Apačia;Null;2");
}

TEST_P(CodeListEditors, ANewCodeGetsItsPlaceInTheList) {
  company_.given_time_codes();
  const auto editor = opened<CodeEditor>(company_.application(), "O0400620");
  ASSERT_TRUE(editor);
  EXPECT_EQ(editor->subject(), "");
  editor->cmdWrite.click();
  type_and_leave(editor->txtCode, "DN");
  editor->cmdWrite.click();
  EXPECT_EQ(last_box(), "Pavadinimas: neįrašyta.");
  type_and_leave(editor->txtName, "Darbas naktį");
  editor->cmdWrite.click();
  EXPECT_EQ(editor->subject(), "O04006205");
  EXPECT_EQ(count(company_.database(), "indications WHERE code = 'DN' AND code_id = 6"), 1);
  EXPECT_TRUE(opened<CodeEditor>(company_.application(), "O0400630"));

  OfficeEditor office(company_.application());
  office.load();
  type_and_leave(office.txtName, "Žemės tarnyba");
  EXPECT_TRUE(office.has_unsaved_changes());
  office.cmdOK.click();
  EXPECT_TRUE(office.close_requested() && !office.has_unsaved_changes());
  EXPECT_EQ(count(company_.database(), "company WHERE name = 'Žemės tarnyba'"), 1);
}

}  // namespace
}  // namespace quor
