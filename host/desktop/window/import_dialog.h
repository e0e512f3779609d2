// The import of a CSV file into one table: the file's head says which, or the user; what its columns are called
// otherwise is chosen once and remembered. What would come in is shown before anything is written: all of the file or
// nothing, with every fault of it listed, or what is odd in what was imported.
//
//   no file -> file, its table not found -> table, columns to choose -> tried: counts and first lines -> imported
#pragma once

#include <QDateTime>
#include <QDialog>

#include "host/desktop/answers/desktop_application.h"
#include "host/exchange/import.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quor {

class ImportColumns;

class ImportDialog : public QDialog {
 public:
  // The application outlives the dialog.
  ImportDialog(DesktopApplication& application, QWidget* parent);

  // Takes the file, finds its table and shows what would come in.
  void take_file(const QString& path);

 private:
  void add_fields();
  void listen();
  void find_table();
  void show_columns(const HeadMapping& mapping);
  void try_import();
  void import_file();
  // Throws ImportRefused unless rows that reach into closed months are all that is wrong, and they may.
  ImportedTable bring_in(ImportRun run, bool into_closed_agreed);
  void show_tried(const ImportedTable& tried, std::size_t into_closed);
  void show_lines(const QStringList& lines);
  void say(const QString& text);
  void grow();
  bool agrees(const ImportRefused& refused);
  const StoredTable* table() const;
  QDateTime time_of_file() const;

  DesktopApplication& application_;
  QLineEdit* file_;
  QComboBox* table_;
  QCheckBox* choose_columns_;
  ImportColumns* columns_;
  QLabel* state_;
  QPlainTextEdit* lines_;
  QPushButton* choose_;
  QPushButton* start_;
  QString taken_;         // the file that is shown
  QDateTime taken_time_;  // as it was when it was tried
  std::vector<std::string> heads_;
};

}  // namespace quor
