// The calculation of a month: which one, how far it is, and whose pay could not be calculated.
#pragma once

#include <QDialog>

#include "host/desktop/answers/desktop_application.h"
#include "platform/data/month.h"

class QDateEdit;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeWidget;

namespace quor {

class MonthDialog : public QDialog {
 public:
  // `month` is proposed. The application outlives the dialog.
  MonthDialog(DesktopApplication& application, const Month& month, QWidget* parent);

  // While it calculates, this stops the calculation after the person it is at.
  void reject() override;

 private:
  void calculate();
  void show_progress(int done, int all);

  DesktopApplication& application_;
  QDateEdit* month_;
  QLabel* state_;
  QProgressBar* progress_;
  QTreeWidget* faults_;
  QPushButton* start_;
  QPushButton* close_;
  bool running_ = false;
  bool cancelled_ = false;
};

}  // namespace quor
