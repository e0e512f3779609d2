// The desktop's edge: every act of the user, on a form or in a window, runs inside it. What an act throws is shown in
// one dialog with details to copy, and the program goes on. Acts nest: a handler may open a dialog in which the user
// acts.
#pragma once

#include <QPointer>
#include <QWidget>
#include <exception>
#include <functional>
#include <vector>

namespace quor {

class ErrorDialog;

class Edge {
 public:
  Edge() = default;
  Edge(const Edge&) = delete;
  Edge& operator=(const Edge&) = delete;

  // Runs before each act: the company is refreshed there. What it throws is dropped; the act meets the fault itself
  // when it needs the company.
  void before_acts(std::function<void()> prepare) { prepare_ = std::move(prepare); }

  // Runs the act, under the hourglass, in the window of `where` (null when there is none yet). False when it threw; the
  // user has then seen the error.
  bool act(QWidget* where, const std::function<void()>& what);
  // The same for what comes in quick succession (keys typed, the focus, the selection): nothing is prepared, the
  // pointer stays.
  bool keystroke(QWidget* where, const std::function<void()>& what);

  // Shows an error and waits until it is read; one that comes while the dialog is open is added to it.
  void report(const std::exception_ptr& error, QWidget* where);

  // The window that a dialog belongs to that is opened now: the one in which the user acts. Null when there is none.
  QWidget* window() const;

 private:
  std::function<void()> prepare_;
  std::vector<QPointer<QWidget>> acting_;  // the innermost is the last
  QPointer<ErrorDialog> dialog_;           // while it is open
};

}  // namespace quor
