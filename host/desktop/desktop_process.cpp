#include "host/desktop/desktop_process.h"

#include <QLocale>

namespace quor {

DesktopProcess::DesktopProcess(int& argc, char** argv, Edge& edge) : QApplication(argc, argv), edge_(edge) {
  setOrganizationName("Quor");
  setApplicationName("quor");
  setApplicationVersion(QUOR_VERSION);
  setApplicationDisplayName("Quor");
  QLocale::setDefault(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
  installTranslator(&texts_);
}

bool DesktopProcess::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    edge_.report(std::current_exception(), activeWindow());
    return true;
  }
}

}  // namespace quor
