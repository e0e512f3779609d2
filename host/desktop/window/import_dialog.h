// The import of a CSV file into one table: all of the file or nothing, with every fault of it listed, or what is odd in
// what was imported.
#pragma once

#include <QDialog>

#include "host/desktop/answers/desktop_application.h"
#include "host/exchange/import_file.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quor {

class ImportRefused;

class ImportDialog : public QDialog {
 public:
  // The application outlives the dialog.
  ImportDialog(DesktopApplication& application, QWidget* parent);

  // Takes the file, and the table that is named like it.
  void take_file(const QString& path);

 private:
  void import_file();
  void list(const std::vector<ImportFault>& lines);
  bool agrees(const ImportRefused& refused);

  DesktopApplication& application_;
  QComboBox* table_;
  QLineEdit* file_;
  QLabel* state_;
  QPlainTextEdit* faults_;
  QPushButton* start_;
};

}  // namespace quor
