// Qt's application object of the desktop: Lithuanian in everything that Qt itself shows, and the last net under the
// edge: what an event handler throws outside of any act is reported, too, and the windows live on.
#pragma once

#include <QApplication>

#include "host/desktop/edge.h"
#include "host/desktop/qt_texts.h"

namespace quor {

class DesktopProcess : public QApplication {
 public:
  // The edge outlives it. There must be a display: Qt ends the process where there is none.
  DesktopProcess(int& argc, char** argv, Edge& edge);
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Edge& edge_;
  QtTexts texts_;
};

}  // namespace quor
