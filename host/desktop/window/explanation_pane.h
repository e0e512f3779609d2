// The side pane that tells where the amounts of a person come from: of whoever is in sight while the user moves about,
// for the month of the window in front.
//
// It follows what the user does a moment after he has done it, and not while a form is at work or the pane itself has
// the focus. It opens no box: what cannot be told is said in the pane.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "host/desktop/answers/desktop_application.h"
#include "platform/data/month.h"

class QHBoxLayout;
class QLabel;
class QTextBrowser;
class QTimer;
class QToolButton;

namespace quor {

class ExplanationPane : public QWidget {
 public:
  struct Sight {
    std::string person;          // the employee's key; "" for nobody
    std::optional<Month> month;  // of the window in front
  };

  // `in_sight` is asked as long as the pane lives. The application outlives it.
  ExplanationPane(DesktopApplication& application, std::function<Sight()> in_sight, QWidget* parent);

  // Shows itself with who is in sight, and takes the focus; hides itself when it has the focus already, which then goes
  // back.
  void toggle();
  // Something was written: what is shown is told anew.
  void refresh();
  Month month() const { return month_; }
  QTextBrowser& text() { return *text_; }

  // An object whose link was followed.
  std::function<void(const std::string& key)> on_open;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void add_head(QHBoxLayout& head);
  void leave();
  void follow();
  void turn_month(int months);
  void print();
  void tell();

  DesktopApplication& application_;
  const std::function<Sight()> in_sight_;
  QLabel* shown_month_;
  QTextBrowser* text_;
  QTimer* moment_;
  QPointer<QWidget> came_from_;
  std::string person_;
  Month month_;
  std::optional<Month> seen_month_;  // of the window that was in front last
  std::string told_;                 // whom, when and in which state the page is about
};

}  // namespace quor
