#include "host/desktop/edge/desktop_process.h"

#include <QKeyEvent>
#include <QLocale>
#include <cstdio>
#include <cstdlib>

namespace quor {

namespace {

// Qt ends the process when it finds no display; this is the message by which it says so.
void say_no_display(QtMsgType type, const QMessageLogContext& /*where*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  QByteArray display = qgetenv("WAYLAND_DISPLAY");
  if (display.isEmpty()) display = qgetenv("DISPLAY");
  std::fprintf(stderr, "quor: ekranas „%s“ nepasiekiamas, langų parodyti negalima\n", display.constData());
  std::_Exit(EXIT_FAILURE);
}

// The key that empties a text field on some systems is a command of the windows here, which the field would take away.
bool empties_field(const QEvent& event) {
  const auto type = event.type();
  return (type == QEvent::ShortcutOverride || type == QEvent::KeyPress) &&
         static_cast<const QKeyEvent&>(event).matches(QKeySequence::DeleteCompleteLine);
}

}  // namespace

DesktopProcess::QuietStart::QuietStart() { qInstallMessageHandler(say_no_display); }
DesktopProcess::QuietStart::~QuietStart() { qInstallMessageHandler(nullptr); }

DesktopProcess::DesktopProcess(int& argc, char** argv, Edge& edge) : DesktopProcess(argc, argv, edge, QuietStart()) {}

DesktopProcess::DesktopProcess(int& argc, char** argv, Edge& edge, const QuietStart& /*while it starts*/)
    : QApplication(argc, argv), edge_(edge) {
  setOrganizationName("Quor");
  setApplicationName("quor");
  setApplicationVersion(QUOR_VERSION);
  setApplicationDisplayName("Quor");
  QLocale::setDefault(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
  installTranslator(&texts_);
}

bool DesktopProcess::notify(QObject* receiver, QEvent* event) {
  if (empties_field(*event)) {
    event->ignore();
    return false;
  }
  try {
    return QApplication::notify(receiver, event);
  } catch (...) {
    edge_.report(std::current_exception(), activeWindow());
    return true;
  }
}

}  // namespace quor
