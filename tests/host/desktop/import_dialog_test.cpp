#include "host/desktop/window/import_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <fstream>
#include <gtest/gtest.h>

#include "tests/support/test_company.h"
#include "tests/support/window_acts.h"

namespace quor {
namespace {

TEST(ImportDialog, ListsWhatIsOddAndWhatIsAtFault) {
  const TemporaryFolder folder;
  TestCompany company;
  company.given_employee("Pirmoji");
  company.given_time_codes();
  DesktopApplication application(company.company(), {.title = "Testas", .today = day("2008.01.31")}, test_edge());
  ImportDialog dialog(application, nullptr);
  bring_up(dialog);
  const std::string file = folder.path("worked_time.csv");
  const auto told = [&](const char* hours) {
    std::ofstream(file) << "employee_id,date,time_code,hours\n1,2008-01,FD," << hours << '\n';
    dialog.take_file(QString::fromStdString(file));
    press(Qt::Key_Return);
    QStringList labels;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) labels << label->text();
    const auto* const list = dialog.findChild<QPlainTextEdit*>();
    EXPECT_EQ(dialog.findChild<QComboBox*>()->currentText(), "Darbo laikas (worked_time)");
    return (labels.filter("kelta").join("") + (list->isVisible() ? list->toPlainText().section(": ", 1) : ""))
        .toStdString();
  };
  EXPECT_EQ(told("184"), "Įkelta. Naujų: 1, pakeistų: 0, nepakitusių: 0.");
  EXPECT_EQ(told("200"),
            "Įkelta. Naujų: 0, pakeistų: 1, nepakitusių: 0. Įspėjimų: 1."
            "stulpelis „hours“ (valandos): kodo FD valandų per mėnesį iš viso 200, o mėnesio norma 184");
  EXPECT_EQ(told("745"), "Neįkelta nieko. Klaidų: 1.stulpelis „hours“ (valandos): 745 – leidžiama nuo 0 iki 744");
}

}  // namespace
}  // namespace quor
