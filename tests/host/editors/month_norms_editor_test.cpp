#include "host/editors/month_norms_editor.h"

#include <gtest/gtest.h>

#include "frame/contract/host_types.h"
#include "tests/support/acting.h"
#include "tests/support/test_company.h"

namespace quor {
namespace {

class MonthNormsForm : public testing::TestWithParam<Backend> {
 protected:
  std::shared_ptr<MonthNormsEditor> opened(const char* object) {
    auto editor = std::dynamic_pointer_cast<MonthNormsEditor>(month_norms_editor(company_.application(), object));
    editor->load();
    return editor;
  }
  std::string stored() {
    return rows_text(*company_.database().read("SELECT month, hours FROM month_norms ORDER BY month",
                                               {{"m", FieldType::kDate}, {"h", FieldType::kDouble}}));
  }
  static std::string line(const MonthNormsEditor& editor, std::size_t row) {
    std::string text;
    for (std::size_t at = 0; at < editor.lvwMonths.columns().size(); ++at) {
      text += (at == 0 ? "" : ";") + editor.lvwMonths.text(row, at);
    }
    return text;
  }

  TestCompany company_{GetParam()};
};
ON_EVERY_DATABASE(MonthNormsForm);

TEST_P(MonthNormsForm, AYearIsProposedChangedByHandAndWritten) {
  const auto editor = opened("O0400610");
  EXPECT_EQ(editor->txtYear.text(), "2008") << "today's year has none yet";
  EXPECT_EQ(line(*editor, 2),
            "2008.03;19;1;151;;11 d. Lietuvos nepriklausomybės atkūrimo diena; 23 d. Velykos; 24 d. antroji Velykų "
            "diena");
  editor->shorten_days.toggle();
  EXPECT_EQ(editor->lvwMonths.text(2, 3), "152");
  editor->shorten_days.toggle();
  editor->lvwMonths.select(1);
  editor->cmdProposeMonth.click();
  EXPECT_EQ(editor->txtNorm.text() + editor->lvwMonths.text(0, 4) + editor->lvwMonths.text(1, 4), "167167");
  EXPECT_TRUE(editor->txtYear.read_only()) << "while something is unsaved";
  editor->cmdProposeAll.click();
  editor->lvwMonths.select(11);
  type_and_leave(editor->txtNorm, "165.5");
  editor->cmdWrite.click();
  EXPECT_EQ(stored(),
            "2008.01.01;176 | 2008.02.01;167 | 2008.03.01;151 | 2008.04.01;175 | 2008.05.01;168 | 2008.06.01;159 |"
            " 2008.07.01;184 | 2008.08.01;159 | 2008.09.01;176 | 2008.10.01;183 | 2008.11.01;160 | 2008.12.01;165,5");
  EXPECT_EQ(editor->subject(), "O04006102008");
  EXPECT_FALSE(editor->has_unsaved_changes());
  EXPECT_EQ(opened("O0400610")->txtYear.text(), "2009") << "the next year without all its norms";
}

TEST_P(MonthNormsForm, FaultsAreToldByMonthAndNothingIsStored) {
  const auto editor = opened("O04006102008");
  EXPECT_TRUE(editor->txtYear.read_only());
  for (const auto& [row, text] : {std::pair{1U, "744,5"}, {2U, "x"}, {3U, "160"}}) {
    editor->lvwMonths.select(row);
    type_and_leave(editor->txtNorm, text);
  }
  editor->cmdWrite.click();
  EXPECT_EQ(company_.application().shown_boxes().back().text,
            "Mėnesio 2008.02 norma: „744,5“ – leidžiama daugiau kaip 0 iki 744.\r\n"
            "Mėnesio 2008.03 norma: „x“ nėra skaičius.");
  EXPECT_EQ(editor->lvwMonths.selected(), 1U);
  EXPECT_EQ(editor->txtNorm.text() + stored(), "744,5");
  editor->cmdCancel.click();
  editor->lvwMonths.select(3);
  type_and_leave(editor->txtNorm, "160");
  company_.database().execute("INSERT INTO month_norms (month, hours) VALUES (39539, 150)");  // another's, of April
  editor->cmdWrite.click();
  EXPECT_EQ(company_.application().shown_boxes().back().text,
            "Įrašymas neatliktas!\r\nMėnesio 2008.04 normą tuo metu pakeitė kitas vartotojas: dabar 150.");
  EXPECT_EQ(editor->lvwMonths.text(3, 4), "160");
  editor->cmdCancel.click();
  EXPECT_EQ(editor->lvwMonths.text(3, 4), "150");
  company_.application().answer(BoxAnswer::kYes);
  company_.application().GetQuorObjectUI(kNormType)->ClickMenu("O04006102008", "3", "O04006102008", "");
  EXPECT_EQ(stored(), "");
}

TEST_P(MonthNormsForm, ANewYearIsTypedWhileNothingIsUnsaved) {
  company_.database().execute("INSERT INTO month_norms (month, hours) VALUES (45292, 180)");  // 2024.01
  const auto editor = opened("O0400610");
  type_over(editor->txtYear, "2024");
  EXPECT_EQ(line(*editor, 0), "2024.01;22;0;176;180;1 d. Naujieji metai");
  type_and_leave(editor->txtYear, "20");
  EXPECT_EQ(editor->txtYear.text(), "2024") << "what is no year goes";
}

}  // namespace
}  // namespace quor
