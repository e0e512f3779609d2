// What the menu of the company offers that concerns it as a whole: another one, a copy, the return to a copy.
#pragma once

#include <QMenu>
#include <functional>
#include <string>

#include "host/desktop/answers/desktop_application.h"
#include "host/desktop/window/next_company.h"

namespace quor {

class CompanyMenu : public QObject {
 public:
  // `address` is that of the open company. The application outlives the menu, which is a child of the window.
  CompanyMenu(DesktopApplication& application, std::string address, QWidget* window);

  void add_companies(QMenu& menu);
  void add_copies(QMenu& menu);

  // The user goes on with another company, open already, or brings this one back to a copy.
  std::function<void(NextCompany)> on_leave;
  std::function<void(const QString& what)> on_done;

 private:
  // Runs at the edge; nothing while a form is at work.
  void act(const std::function<void()>& what);
  void leave(NextCompany next);
  void make();
  void open();
  void open_recent(const QString& address);
  void show_recent(QMenu& menu);
  void back_up();
  void restore();

  DesktopApplication& application_;
  const std::string address_;
  QWidget* window_;
};

}  // namespace quor
