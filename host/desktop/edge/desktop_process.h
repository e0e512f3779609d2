// Qt's application object of the desktop: Lithuanian in everything that Qt itself shows, and the last net under the
// edge: what an event handler throws outside of any act is reported, too, and the windows live on.
#pragma once

#include <QApplication>

#include "host/desktop/edge/edge.h"
#include "host/desktop/edge/qt_texts.h"

namespace quor {

class DesktopProcess : public QApplication {
 public:
  // The edge outlives it. Where no display can be reached, says so on standard error and ends the process with status
  // 1: Qt lets nobody go on.
  DesktopProcess(int& argc, char** argv, Edge& edge);
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  // What Qt says at its start is held back.
  struct QuietStart {
    QuietStart();
    QuietStart(const QuietStart&) = delete;
    QuietStart& operator=(const QuietStart&) = delete;
    ~QuietStart();
  };
  DesktopProcess(int& argc, char** argv, Edge& edge, const QuietStart& quiet);

  Edge& edge_;
  QtTexts texts_;
};

}  // namespace quor
