#include "host/desktop/edge/edge.h"

#include <QApplication>

#include "host/desktop/edge/error_dialog.h"
#include "host/desktop/edge/pointer.h"

namespace quor {

bool Edge::act(QWidget* where, const std::function<void()>& what) {
  const HourglassPointer hourglass;
  return keystroke(where, [&] {
    if (prepare_) {
      try {
        prepare_();
      } catch (const std::exception&) {
        // A company that cannot be reached does not stop the act: what reads or writes it will say so.
      }
    }
    what();
  });
}

bool Edge::keystroke(QWidget* where, const std::function<void()>& what) {
  acting_.emplace_back(where);
  std::exception_ptr error;
  try {
    what();
  } catch (...) {
    error = std::current_exception();
  }
  const QPointer<QWidget> place = acting_.back();
  acting_.pop_back();
  if (error) report(error, place);
  return !error;
}

void Edge::report(const std::exception_ptr& error, QWidget* where) {
  if (dialog_) {
    dialog_->add(error);
    return;
  }
  QWidget* const parent = where != nullptr && where->isVisible() ? where->window() : window();
  const FreePointer pointer;
  ErrorDialog dialog(parent);
  dialog_ = &dialog;
  dialog.add(error);
  dialog.exec();
}

QWidget* Edge::window() const {
  for (auto place = acting_.rbegin(); place != acting_.rend(); ++place) {
    if (*place && (*place)->isVisible()) return (*place)->window();
  }
  return QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                      : QApplication::activeWindow();
}

}  // namespace quor
