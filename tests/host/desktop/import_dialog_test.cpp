#include "host/desktop/window/import_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

class ImportDialogTest : public testing::Test {
 protected:
  ImportDialogTest() {
    company_.given_employee("Pirmoji");
    company_.given_time_codes();
    bring_up(dialog_);
  }
  void take(const std::string& text) {
    std::ofstream(file_) << text;
    dialog_.take_file(QString::fromStdString(file_));
  }
  // Its state and its list, without the place of the file.
  std::string told() const {
    const auto* const list = dialog_.findChild<QPlainTextEdit*>();
    QString text = said(dialog_);
    for (const QLabel* label : dialog_.findChildren<QLabel*>()) {
      if (label->wordWrap()) text = label->text();
    }
    return QString(text + (list->isVisible() ? "|" + list->toPlainText() : ""))
        .remove(QString::fromStdString(file_))
        .toStdString();
  }
  QString table() const { return dialog_.findChild<QComboBox*>()->currentText(); }
  std::int64_t rows() { return count(company_.company().database(), "worked_time"); }

  const TemporaryFolder folder_;
  const std::string file_ = folder_.path("a.csv");
  TestCompany company_;
  DesktopApplication application_{company_.company(), {.title = "Testas", .today = day("2008.01.31")}, test_edge()};
  ImportDialog dialog_{application_, nullptr};
};

TEST_F(ImportDialogTest, ShowsWhatWouldComeInBeforeItListsWhatIsOddAndWhatIsAtFault) {
  const std::string head = "employee_id,date,time_code,hours\n1,2008-01,FD,";
  take(head + "184\n");
  EXPECT_EQ(table(), "Darbo laikas (worked_time)");
  EXPECT_EQ(told(),
            "Dar neįrašyta. Naujų: 1, pakeistų: 0, nepakitusių: 0.|"
            "2: nauja (darbuotojas 1, diena arba mėnuo 2008-01, laiko kodas FD): valandos 184");
  EXPECT_EQ(rows(), 0);
  press(Qt::Key_Return);
  EXPECT_EQ(told(), "Įkelta. Naujų: 1, pakeistų: 0, nepakitusių: 0.");
  EXPECT_EQ(rows(), 1);
  take(head + "200\n");
  press(Qt::Key_Return);
  EXPECT_EQ(told(),
            "Įkelta. Naujų: 0, pakeistų: 1, nepakitusių: 0. Įspėjimų: 1.|"
            ":2: stulpelis „hours“ (valandos): kodo FD valandų per mėnesį iš viso 200, o mėnesio norma 184");
  take(head + "745\n");
  EXPECT_EQ(told(), "Importuoti negalima. Klaidų: 1.|:2: stulpelis „hours“ (valandos): 745 – leidžiama nuo 0 iki 744");
}

TEST_F(ImportDialogTest, ForeignHeadsAreChosenOnceAndRemembered) {
  const std::string foreign = "Tab. Nr.;date;time_code;Val.\n1;2008-01;FD;8\n";
  take(foreign);
  EXPECT_NE(told().find("artimiausia „Darbo laikas“"), std::string::npos) << told();
  const auto choose = [&](int row, const char* column) {
    auto* const choice = static_cast<QComboBox*>(only<QTableWidget>(dialog_).cellWidget(row, 1));
    choice->setFocus();
    while (!choice->currentText().startsWith(column)) press(Qt::Key_Down);
  };
  choose(0, "darbuotojas");
  EXPECT_EQ(told(), "Nurodykite, kurie failo stulpeliai yra: „hours“ (valandos).");
  choose(3, "valandos");
  EXPECT_TRUE(told().starts_with("Dar neįrašyta. Naujų: 1,")) << told();
  press(Qt::Key_Return);
  EXPECT_EQ(rows(), 1);

  ImportDialog again(application_, nullptr);
  again.take_file(QString::fromStdString(file_));
  EXPECT_EQ(again.findChild<QComboBox*>()->currentText(), "Darbo laikas (worked_time)");
  again.close();
  // Heads that fit several tables leave the choice to the user.
  take("id,code,name\n1,A,B\n");
  EXPECT_EQ(table(), "");
  EXPECT_NE(told().find("tinka kelioms lentelėms"), std::string::npos);
}

}  // namespace
}  // namespace quor
