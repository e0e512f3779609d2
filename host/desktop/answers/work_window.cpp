#include "host/desktop/answers/work_window.h"

#include <QCoreApplication>

namespace quor {

namespace {

constexpr int kPatience = 500;  // ms before the window is shown
constexpr int kPause = 50;      // ms between two looks at what the user does

}  // namespace

WorkWindow::WorkWindow(QuorApplication& application, const QString& what, QWidget* parent)
    : busy_(application.hourglass()), window_(new QProgressDialog(what, "&Nutraukti", 0, 0, parent)) {
  window_->setWindowTitle(QString::fromStdString(application.Title()));
  window_->setWindowModality(Qt::ApplicationModal);
  window_->setAutoClose(false);
  window_->setAutoReset(false);
  window_->setMinimumWidth(420);
  window_->setMinimumDuration(24 * 60 * 60 * 1000);  // shown by us alone
  window_->reset();
  since_.start();
}

WorkWindow::~WorkWindow() { delete window_.data(); }

void WorkWindow::progress(int done, int all) {
  if (!window_ || window_->wasCanceled()) return;
  window_->setRange(0, all);
  window_->setValue(done);
}

bool WorkWindow::cancelled() {
  const qint64 now = since_.elapsed();
  if (!window_ || now - looked_at_ < kPause) return window_ && window_->wasCanceled();
  looked_at_ = now;
  if (now < kPatience) {
    // What the user does waits: it is meant for what he will see then.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  } else {
    if (!window_->isVisible() && !window_->wasCanceled()) window_->show();
    QCoreApplication::processEvents();
  }
  return window_ && window_->wasCanceled();
}

}  // namespace quor
