// The tests in real windows: one process, one screen, settings in a folder of its own.
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include "host/desktop/edge/desktop_process.h"
#include "tests/support/window_acts.h"

namespace quor {

Edge& test_edge() {
  static Edge edge;
  return edge;
}

}  // namespace quor

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  quor::DesktopProcess process(argc, argv, quor::test_edge());
  return RUN_ALL_TESTS();
}
