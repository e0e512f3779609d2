// The dialog that shows what went wrong: the text for the user, and behind a button the details, which can be copied.
#pragma once

#include <QDialog>
#include <exception>

class QLabel;
class QPlainTextEdit;

namespace quor {

class ErrorDialog : public QDialog {
 public:
  explicit ErrorDialog(QWidget* parent);
  // The first error is the dialog's text; those that follow are counted there, and all are in the details.
  void add(const std::exception_ptr& error);

  QString text() const;
  QString details() const;

 private:
  void show_details(bool shown);

  QLabel* text_;
  QLabel* more_;
  QPlainTextEdit* details_;
  int count_ = 0;
};

}  // namespace quor
