// Long work as its user sees it: after half a second a small window with how far it is and the button that ends it. All
// other windows wait.
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>
#include <memory>

#include "frame/contract/quor_application.h"
#include "host/application/long_work.h"

namespace quor {

class WorkWindow : public LongWork {
 public:
  WorkWindow(QuorApplication& application, const QString& what, QWidget* parent);
  ~WorkWindow() override;

  void progress(int done, int all) override;
  bool cancelled() override;

 private:
  std::shared_ptr<Object> busy_;
  QPointer<QProgressDialog> window_;  // a child of the window in which the user acts
  QElapsedTimer since_;
  qint64 looked_at_ = 0;  // ms since the start
};

}  // namespace quor
