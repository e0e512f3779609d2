// The import of a CSV file into one table: all of the file or nothing, with every fault of it listed.
#pragma once

#include <QDialog>

#include "host/desktop/desktop_application.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace quor {

class ImportDialog : public QDialog {
 public:
  // The application outlives the dialog.
  ImportDialog(DesktopApplication& application, QWidget* parent);

  // Takes the file, and the table that is named like it.
  void take_file(const QString& path);

 private:
  void import_file();

  DesktopApplication& application_;
  QComboBox* table_;
  QLineEdit* file_;
  QLabel* state_;
  QPlainTextEdit* faults_;
  QPushButton* start_;
};

}  // namespace quor
