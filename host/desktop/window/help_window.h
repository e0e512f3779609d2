// The help: its contents and a search at the left, the page at the right. It stands beside the work and waits for
// nobody; above a dialog it belongs to the dialog, which would else keep it from being read.
#pragma once

#include <QDialog>
#include <functional>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace quor {

class HelpWindow : public QDialog {
 public:
  // Shows the page in the help that `above` has open already, or in a new one, which goes when it is closed.
  static HelpWindow& show_above(QWidget& above, const QString& page);

  void show_page(const QString& page);
  QString page() const;

 private:
  explicit HelpWindow(QWidget* above);
  void fill_contents();

  QLineEdit* search_;
  QListWidget* contents_;
  QTextBrowser* text_;
};

// While it lives, F1 in any window shows the help of that window.
class HelpKey : public QObject {
 public:
  // `page` answers the one of a window.
  HelpKey(std::function<QString(QWidget& window)> page, QObject* parent);
  bool eventFilter(QObject* watched, QEvent* event) override;
  // As the key does.
  void show_help() const;

 private:
  std::function<QString(QWidget& window)> page_;
};

}  // namespace quor
