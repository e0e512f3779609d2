#include "host/desktop/answers/file_question.h"

#include <QFileDialog>
#include <QSettings>

#include "host/desktop/edge/pointer.h"
#include "host/report/report_text.h"
#include "host/report/report_xlsx.h"
#include "host/store/whole_file.h"

namespace quor {

namespace {

constexpr char kFolderSetting[] = "folders/reports";
const QString kKindSetting = "reports/";
constexpr int kLongestName = 100;  // characters: with their accents within what file systems take

ReportData report_of(const ShownTable& table) {
  ReportData report{.title = table.title};
  for (const ShownTable::Column& column : table.columns) {
    report.columns.push_back({.key = column.caption, .caption = column.caption, .alignment = column.alignment});
  }
  for (const ShownTable::Cell& cell : table.cells) report.cells.push_back({cell.text, cell.colour});
  report.lines = table.columns.empty() ? 0 : table.cells.size() / table.columns.size();
  return report;
}

}  // namespace

// Without a dot: what follows one is taken for the kind of file.
QString file_name_of(const QString& text) {
  QString name = text.simplified().left(kLongestName);
  for (const QChar forbidden : QString("/\\:*?\"<>|.")) name.replace(forbidden, '-');
  return name.isEmpty() ? "ataskaita" : name;
}

void ask_and_save(const QString& name, const QString& ending, const std::vector<SavingWay>& ways, QWidget* parent) {
  QString path;
  std::size_t chosen = 0;
  {
    const FreePointer pointer;
    QSettings settings;
    QStringList kinds;
    for (const SavingWay& way : ways) kinds << way.kind + " (*." + ending + ")";
    QFileDialog dialog(parent, "Įrašyti", settings.value(kFolderSetting).toString());
    dialog.setNameFilters(kinds);
    dialog.selectNameFilter(settings.value(kKindSetting + ending, kinds.front()).toString());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(ending);
    dialog.selectFile(name + "." + ending);
    if (dialog.exec() != QDialog::Accepted) return;
    path = dialog.selectedFiles().value(0);
    chosen = static_cast<std::size_t>(qMax(0, kinds.indexOf(dialog.selectedNameFilter())));
    settings.setValue(kKindSetting + ending, dialog.selectedNameFilter());
  }
  ways[chosen].save(path);
  QSettings().setValue(kFolderSetting, QFileInfo(path).absolutePath());
}

void ask_and_save_table(const ShownTable& table, TableFormat kind, Date today, QWidget* parent) {
  const auto report = std::make_shared<const ReportData>(report_of(table));
  const QString name = file_name_of(QString::fromStdString(table.title));
  const auto csv = [&](const CsvStyle& style) {
    return [&](const QString& path) { write_whole_file(path.toStdString(), csv_text(*report, style)); };
  };
  const auto xlsx = [&](const QString& path) { write_whole_file(path.toStdString(), report_xlsx({report}, today)); };
  if (kind == TableFormat::kXlsx) return ask_and_save(name, "xlsx", {{"XLSX failai", xlsx}}, parent);
  ask_and_save(name, "csv", {{"CSV skaičiuoklei", csv(kSpreadsheetCsv)}, {"CSV kitoms programoms", csv(kProgramCsv)}},
               parent);
}

}  // namespace quor
