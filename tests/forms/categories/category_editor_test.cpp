// The editor of a category and the dialog of its factor rows, acted on as a person does, against the real host.
#include "forms/categories/category_editor.h"

#include <gtest/gtest.h>

#include "adapters/category_object.h"
#include "forms/categories/category_row_editor.h"
#include "platform/data/error.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::BoxAnswer;
using quor::choose_on;
using quor::shown;
using quor::type_and_leave;
using quor::type_over;

class CategoryEditor : public testing::TestWithParam<quor::Backend> {
 protected:
  quor::TestApplication& application() { return company_.application(); }

  void open(const std::string& key) {
    object_ = std::make_shared<UIO0402200>(application());
    object_->OIDR(key);
    ASSERT_FALSE(object_->Read().Failed);
    editor_ = std::make_unique<frmOfficeEmployeeCategories>(application());
    editor_->QuorObjectUIO = object_;
    editor_->load();
  }
  void open_stored() {
    open("O0402200" + std::to_string(company_.given_category("A lygis", {{"2005.01.01", 9.7}, {"2007.01.01", 10.1}})));
  }

  // On the type and on its group's key, which nobody has registered here.
  void given_rights(const char* letters) {
    const std::int32_t user = company_.given_user("testuotoja");
    for (const char* component : {"O0402200", "COfficeEmployees"}) company_.given_rights(user, component, letters);
  }

  // The user of the row dialog, from its opening to its closing.
  using Dialog = frmOfficeEmployeeCategoryRow;
  void in_the_dialog(std::function<void(Dialog&)> acts) {
    application().on_modal([acts = std::move(acts)](quor::Form& form) { acts(dynamic_cast<Dialog&>(form)); });
  }
  void enter_row(const char* date, const char* factor) {
    in_the_dialog([=](Dialog& dialog) {
      if (date != nullptr) dialog.dtpDate.pick(quor::day(date));
      type_and_leave(dialog.txtFactor, factor);
      dialog.cmdOK.click();
    });
  }
  std::string buttons() const {
    return std::string(editor_->cmdWrite.enabled() ? "write " : "") + (editor_->cmdCancel.enabled() ? "cancel " : "") +
           (editor_->SSCNew.enabled() ? "new" : "");
  }
  std::string stored() {
    return rows_text(*company_.database().read(
        "SELECT c.name, r.date_from, r.factor FROM categories c LEFT JOIN category_rows r ON r.category_id = c.id"
        " ORDER BY c.id, r.date_from",
        {{"Name", quor::FieldType::kText}, {"From", quor::FieldType::kDate}, {"Factor", quor::FieldType::kDouble}},
        {}));
  }

  quor::TestCompany company_{GetParam()};
  std::shared_ptr<UIO0402200> object_;
  std::unique_ptr<frmOfficeEmployeeCategories> editor_;
};
ON_EVERY_DATABASE(CategoryEditor);

TEST_P(CategoryEditor, ANewCategoryIsWrittenWithItsRowsAndReadAgain) {
  open("O0402200");
  EXPECT_EQ(editor_->SOPanel.caption(), " Nauja pareigybių kategorija");
  EXPECT_EQ(buttons(), "");
  type_and_leave(editor_->txtName, "B lygis");
  enter_row("2005.01.01", "9.7");
  choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  enter_row("2006.01.01", "9,8");
  choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  in_the_dialog([](Dialog& dialog) { dialog.cmdOK.click(); });
  choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  EXPECT_EQ(shown(editor_->lvwFactors), "2005.01.01;9,7 | 2006.01.01;9,8 | 2008.01.31;1");
  EXPECT_EQ(stored(), "");

  enter_row(nullptr, "10,25");
  editor_->lvwFactors.double_click(1);
  application().answer(BoxAnswer::kYes);
  choose_on(editor_->lvwFactors, 0, editor_->mnuDelete);
  EXPECT_EQ(shown(editor_->lvwFactors), "2006.01.01;10,25 | 2008.01.31;1");
  EXPECT_EQ(buttons(), "write ");
  editor_->cmdWrite.click();
  EXPECT_EQ(stored(), "B lygis;2006.01.01;10,25 | B lygis;2008.01.31;1");
  EXPECT_EQ(editor_->SOPanel.caption(), " Pareigybių kategorija");
  EXPECT_EQ(buttons(), "new");

  open(object_->OIDR());
  EXPECT_EQ(editor_->txtName.text(), "B lygis");
  EXPECT_EQ(shown(editor_->lvwFactors), "2006.01.01;10,25 | 2008.01.31;1");
}

TEST_P(CategoryEditor, CancellingDropsTheNameAndEveryChangeOfTheRows) {
  open_stored();
  type_and_leave(editor_->txtName, "Kita");
  enter_row("2008.01.01", "11");
  choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  enter_row(nullptr, "12");
  choose_on(editor_->lvwFactors, 0, editor_->mnuEdit);
  // Two deletions, one behind the other, with the filter that each leaves.
  for (const std::size_t row : {1U, 0U}) {
    application().answer(BoxAnswer::kYes);
    choose_on(editor_->lvwFactors, row, editor_->mnuDelete);
  }
  EXPECT_EQ(shown(editor_->lvwFactors), "2008.01.01;11");
  EXPECT_EQ(buttons(), "write cancel ");
  editor_->cmdCancel.click();
  EXPECT_EQ(editor_->txtName.text(), "A lygis");
  EXPECT_EQ(shown(editor_->lvwFactors), "2005.01.01;9,7 | 2007.01.01;10,1");
  EXPECT_EQ(buttons(), "new");
}

TEST_P(CategoryEditor, AFailedWriteIsToldAndReturnsToWhatIsStored) {
  open_stored();
  type_and_leave(editor_->txtName, "Kita");
  enter_row("2008.01.01", "11");
  choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  company_.fail_statements();
  editor_->cmdWrite.click();
  company_.heal();
  EXPECT_EQ(application().boxes(), std::vector<std::string>{"none, ok, Testas: ryšys nutrūko\r\nĮrašymas neatliktas!"});
  EXPECT_EQ(editor_->txtName.text(), "A lygis");
  EXPECT_EQ(shown(editor_->lvwFactors), "2005.01.01;9,7 | 2007.01.01;10,1");
  EXPECT_EQ(stored(), "A lygis;2005.01.01;9,7 | A lygis;2007.01.01;10,1");
}

TEST_P(CategoryEditor, ACategoryDeletedByAnotherUserFailsToBeWritten) {
  open_stored();
  company_.given_category("Nuošali", {});
  type_and_leave(editor_->txtName, "Kita");
  EXPECT_FALSE(application().NewMainBO()->DeleteQuorObject(object_->OIDR()));
  editor_->cmdWrite.click();
  ASSERT_EQ(application().boxes().size(), 1U);
  EXPECT_NE(application().boxes()[0].find("panaikin"), std::string::npos) << application().boxes()[0];
  EXPECT_EQ(stored(), "Nuošali;Null;Null");
}

TEST_P(CategoryEditor, OnlyNoKeepsARowAndOnlyARowCanBeEdited) {
  open_stored();
  for (const auto& [answer, left] : {std::pair{BoxAnswer::kNo, 2U}, std::pair{BoxAnswer::kCancel, 1U}}) {
    application().answer(answer);
    choose_on(editor_->lvwFactors, 0, editor_->mnuDelete);
    EXPECT_EQ(editor_->lvwFactors.row_count(), left);
  }
  EXPECT_EQ(application().boxes()[0], "question, yesno, Testas: Ar tikrai norite panaikinti?");
  editor_->lvwFactors.right_click({});  // the fill has left no row selected
  EXPECT_TRUE(editor_->mnuNew.enabled());
  EXPECT_FALSE(editor_->mnuEdit.enabled() || editor_->mnuDelete.enabled());
  editor_->lvwFactors.double_click({});
  EXPECT_EQ(editor_->lvwFactors.row_count(), 1U);
}

TEST_P(CategoryEditor, ACommandThatComesWhileAnotherRunsIsDropped) {
  open_stored();
  quor::ListView& list = editor_->lvwFactors;
  int dialogs = 0, questions = 0;
  const auto act = [&] {
    list.double_click(0);
    for (quor::MenuItem* item : {&editor_->mnuNew, &editor_->mnuDelete}) choose_on(list, 0, *item);
    EXPECT_FALSE(editor_->mnuMain.is_open());
  };
  in_the_dialog([&](Dialog& dialog) {
    ++dialogs;
    act();
    dialog.cmdOK.click();
  });
  application().on_box([&](const quor::ShownBox&) {
    ++questions;
    act();
  });
  application().answer(BoxAnswer::kYes);
  choose_on(list, 0, editor_->mnuDelete);
  EXPECT_EQ(shown(list), "2007.01.01;10,1");
  choose_on(list, {}, editor_->mnuNew);
  EXPECT_EQ(shown(list), "2007.01.01;10,1 | 2008.01.31;1");
  in_the_dialog([](Dialog&) { throw quor::Error(quor::ErrorKind::kOverflow, ""); });
  EXPECT_THROW(list.double_click(0), quor::Error);
  in_the_dialog([&](Dialog&) { ++dialogs; });
  list.double_click(0);
  EXPECT_EQ(std::pair(questions, dialogs), std::pair(1, 2)) << "what ended by an error has ended";
}

TEST_P(CategoryEditor, ANewCategoryIsStartedBesideAStoredOne) {
  open_stored();
  editor_->SSCNew.click();
  EXPECT_EQ(editor_->SOPanel.caption(), " Nauja pareigybių kategorija");
  EXPECT_EQ(editor_->txtName.text() + shown(editor_->lvwFactors), "");
  type_and_leave(editor_->txtName, "B lygis");
  editor_->cmdWrite.click();
  EXPECT_EQ(stored(), "A lygis;2005.01.01;9,7 | A lygis;2007.01.01;10,1 | B lygis;Null;Null");
}

TEST_P(CategoryEditor, ACancelledDialogChangesNothingAndHidesNothing) {
  open_stored();
  for (const bool by_button : {true, false}) {
    in_the_dialog([&](Dialog& dialog) {
      EXPECT_EQ(dialog.txtFactor.text(), "9,7");
      type_and_leave(dialog.txtFactor, "99");
      by_button ? dialog.cmdCancel.click() : dialog.close_box();
    });
    choose_on(editor_->lvwFactors, 0, editor_->mnuEdit);
    EXPECT_EQ(buttons(), "new");
  }
  type_and_leave(editor_->txtName, "Kita");
  editor_->cmdWrite.click();
  EXPECT_EQ(stored(), "Kita;2005.01.01;9,7 | Kita;2007.01.01;10,1");
}

TEST_P(CategoryEditor, WithoutTheRightToWriteNothingIsWritten) {
  given_rights("vcdp");
  open_stored();
  type_and_leave(editor_->txtName, "Kita");
  EXPECT_EQ(buttons(), "cancel new");
}

TEST_P(CategoryEditor, WhoMayNotCreateIsToldBeforeTyping) {
  given_rights("vdpw");
  open_stored();
  EXPECT_EQ(quor::error_text([&] { editor_->SSCNew.click(); }), "Neturite teisės kurti pareigybių kategorijų.");
  type_and_leave(editor_->txtName, "Kita");
  editor_->cmdWrite.click();
  EXPECT_EQ(stored().substr(0, 4), "Kita") << "the category that was open still is";
}

TEST_P(CategoryEditor, TheFactorBoxTakesWhatCanBecomeANumber) {
  const struct {
    const char *keys, *typed, *left;
  } cases[] = {{"2.5", "2,5", "2,5000"}, {"-", "", "0,0000"}, {",", ",", "0,0000"}};
  open_stored();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.keys);
    in_the_dialog([&](Dialog& dialog) {
      type_over(dialog.txtFactor, c.keys);
      EXPECT_EQ(dialog.txtFactor.text(), c.typed);
      dialog.txtFactor.leave();
      EXPECT_EQ(dialog.txtFactor.text(), c.left);
    });
    choose_on(editor_->lvwFactors, {}, editor_->mnuNew);
  }
}

TEST_P(CategoryEditor, AFactorThatIsNoNumberIsToldAndNothingIsWritten) {
  open_stored();
  in_the_dialog([&](Dialog& dialog) {
    type_over(dialog.txtFactor, ",");
    dialog.cmdOK.click();
    EXPECT_FALSE(dialog.close_requested());
    EXPECT_TRUE(dialog.Cancelled);
  });
  choose_on(editor_->lvwFactors, 0, editor_->mnuEdit);
  EXPECT_EQ(application().boxes(),
            std::vector<std::string>{"exclamation, ok, Testas: Koeficientas „,“ nėra skaičius."});
  EXPECT_EQ(shown(editor_->lvwFactors), "2005.01.01;9,7 | 2007.01.01;10,1");
}

TEST_P(CategoryEditor, ARowThatIsGoneIsEnteredAsANewOne) {
  open_stored();
  in_the_dialog([](Dialog& dialog) {
    EXPECT_EQ(dialog.RowGUID, "");
    EXPECT_EQ(dialog.txtFactor.text(), "1");
    EXPECT_EQ(dialog.dtpDate.value(), quor::day("2008.01.31"));
    dialog.cmdOK.click();
  });
  const auto rows = catalogue::rows_of(*object_);
  rows->MoveFirst();
  rows->Delete();
  editor_->lvwFactors.double_click(0);
  EXPECT_EQ(shown(editor_->lvwFactors), "2007.01.01;10,1 | 2008.01.31;1");
}

}  // namespace
}  // namespace velmora
