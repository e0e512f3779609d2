#include "host/desktop/window/rules_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QSettings>
#include <QStandardPaths>

#include "host/desktop/edge/pointer.h"

namespace quor {

namespace {

constexpr char kRulesSetting[] = "folders/rules";

}  // namespace

QString shipped_rules() {
  const QDir program(QCoreApplication::applicationDirPath());
  // A program that was built and not installed stands in build/PRESET/bin.
  for (const char* const beside : {"rules", "docs/rules", "../share/quor/rules", "../../../docs/rules"}) {
    if (program.exists(beside)) return QDir::cleanPath(program.filePath(beside));
  }
  return QStandardPaths::locate(QStandardPaths::AppDataLocation, "rules", QStandardPaths::LocateDirectory);
}

QString ask_for_rules(QWidget& above) {
  const QString shipped = shipped_rules();
  const QString first = shipped.isEmpty() ? QSettings().value(kRulesSetting).toString() : shipped;
  QString chosen;
  {
    const FreePointer pointer;
    chosen = QFileDialog::getExistingDirectory(&above, "Taisyklių lentelių aplankas", first);
  }
  if (!chosen.isEmpty()) QSettings().setValue(kRulesSetting, chosen);
  return chosen;
}

}  // namespace quor
