#include "adapters/category_list_ui.h"

#include <gtest/gtest.h>

#include "forms/categories/category_editor.h"
#include "forms/preview/salary_preview.h"
#include "forms/preview/supplement_preview.h"
#include "forms/settings/settings_editor.h"
#include "tests/support/test_company.h"

namespace velmora {
namespace {

using quor::BoxAnswer;
using quor::ClickAction;
using quor::FieldType;
using quor::kNull;
using Texts = std::vector<std::string>;

class CategoryListTest : public testing::Test {
 protected:
  quor::ClickResult click(const std::string& entry, const std::string& object = "") {
    return ui_->ClickMenu(object, entry, "", "");
  }
  // What is opened with which data object: "type record preview", or "nothing".
  template <typename Opened>
  static std::string opened(const quor::ClickResult& result) {
    if (result.Action != ClickAction::kShowForm) return result.EditorForm ? "a form without its action" : "nothing";
    const auto object = dynamic_cast<Opened&>(*result.EditorForm).QuorObjectUIO;
    return object->OType() + " " + object->OIDR() + " " + object->Preview();
  }
  // The report that is shown: "title: captions: name=factor ..."; "none" when it is not.
  std::string printed() {
    const auto before = application_.shown_report();
    EXPECT_EQ(click("6").Action, ClickAction::kNothing);
    const auto report = application_.shown_report();
    if (report == before) return "none";
    std::string text = report->title + ": ";
    for (const auto& column : report->columns) text += column.key + "=" + column.caption + " ";
    for (std::size_t line = 0; line < report->lines; ++line) {
      text += "| " + report->cell(line, 0).text + "=" + report->cell(line, 1).text + " ";
    }
    return text;
  }

  quor::TestCompany company_;
  quor::TestApplication& application_ = company_.application();
  std::string category_ = "O0402200" + std::to_string(company_.given_category("A lygis", {{"2005.01.01", 9.7}}));
  std::shared_ptr<UI0402200> ui_ = std::make_shared<UI0402200>(application_);
};

TEST_F(CategoryListTest, TheMenuDependsOnThePlace) {
  const std::string full = "0=Padėti ant darbo stalo; 1=Naujas įrašas; =-; 5=Panaikinti; =-; 6=Spausdinti; =-; ";
  const std::pair<std::string, std::string> cases[] = {
      {application_.NewMainBO()->GroupContext(),
       "2=Valstybės tarnautojų sąrašas; 3=Valstybės tarnautojų priedai; =-; "},
      {"O0402200K", "1=Naujas įrašas; "},
      {category_, full},
      {"", full}};
  for (const auto& [context, expected] : cases) {
    std::string menu;
    for (const auto& entry : ui_->GetMenu(context, "O0402200", ""))
      menu += entry.Identifier + "=" + entry.Caption + "; ";
    EXPECT_EQ(menu, expected) << context;
  }
}

TEST_F(CategoryListTest, AClickCarriesAFormWithItsDataObject) {
  EXPECT_EQ(opened<frmOfficeEmployeeCategories>(click("0", category_)), "O0402200 " + category_ + " A lygis");
  EXPECT_EQ(opened<frmOfficeEmployeeCategories>(click("1", category_)), "CategoryType  ") << "a new one";
  EXPECT_EQ(quor::outcome([&] { return opened<frmOfficeEmployeePreview>(click("2")); }), "NotFound");
  application_.load_plugin(VELMORA_PLUGIN);
  EXPECT_EQ(opened<frmOfficeEmployeePreview>(click("2")), "OfficeEmployeePreview O0402000 ");
  EXPECT_EQ(opened<frmOfficeEmployeeExtraChargePreview>(click("3")), "OfficeEmployeePreview O0402000 ");
  EXPECT_EQ(opened<frmOfficeEmployeeSettings>(click("4")), "CategoryType  Nustatymai");
  for (const char* unknown : {"", "7", "-", "02"})
    EXPECT_EQ(opened<frmOfficeEmployeeSettings>(click(unknown)), "nothing") << unknown;
  EXPECT_EQ(opened<frmOfficeEmployeeCategories>(click("0", "O0402200999")), "nothing") << "without a word";
  EXPECT_TRUE(application_.boxes().empty());
  company_.fail_statements();
  EXPECT_EQ(opened<frmOfficeEmployeeCategories>(click("0", category_)), "nothing");
  EXPECT_EQ(application_.boxes(), Texts{"exclamation, ok, Testas: ryšys nutrūko"});
}

TEST_F(CategoryListTest, TheDeskTopTakesWhatHasAnEditor) {
  EXPECT_TRUE(ui_->AddToDeskTopQuorObject(category_));
  EXPECT_FALSE(ui_->AddToDeskTopQuorObject("O0402200999"));
  EXPECT_EQ(application_.desk_top(), Texts{category_});
}

TEST_F(CategoryListTest, ACategoryIsDeletedOnlyOnYes) {
  for (const BoxAnswer answer : {BoxAnswer::kNo, BoxAnswer::kOk}) {
    application_.answer(answer);
    EXPECT_EQ(click("5", category_).Action, ClickAction::kNothing);
  }
  EXPECT_TRUE(ui_->GetQuorObject(category_));
  EXPECT_EQ(application_.boxes().back(), "question, yesno, Testas: Ar tikrai norite panaikinti?");
  for (const ClickAction action : {ClickAction::kRemoved, ClickAction::kNothing}) {  // the second time it is gone
    application_.answer(BoxAnswer::kYes);
    EXPECT_EQ(click("5", category_).Action, action);
  }
}

TEST_F(CategoryListTest, EachRunOfACategoryIsPrintedOnceWithItsLastFactor) {
  const std::string head =
      "VALSTYBĖS TARNAUTOJŲ PAREIGYBIŲ KATEGORIJOS: ColName=Pareigybių kategorijos ColFactor=Pareiginių algų "
      "koeficientai ";
  const auto answer = [&](std::initializer_list<std::vector<quor::Variant>> rows) {
    application_.answers["GetCategoryPreview"] = {
        0, "",
        quor::record_set({{"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"Factor", FieldType::kDouble}},
                         rows)};
  };
  answer({});
  EXPECT_EQ(printed(), head);
  answer({{1, "A", 7.0}, {1, "a", 9.5}, {1, "a", 8.25}, {2, "B", 5.0}, {1, "A", 6.0}, {3, "A", kNull}});
  EXPECT_EQ(printed(), head + "| A=8,25 | B=5 | A=6 | A=0 ");
  application_.refuse("GetCategoryPreview", "ryšys nutrūko");
  EXPECT_EQ(printed(), "none");
  EXPECT_EQ(application_.boxes(), Texts{"exclamation, ok, Testas: ryšys nutrūko"});
  EXPECT_EQ(application_.requests.back(), "GetCategoryPreview(None), flag 0");
}

}  // namespace
}  // namespace velmora
