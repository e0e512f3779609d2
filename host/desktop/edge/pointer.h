// The mouse pointer while the program works: the hourglass, and the usual pointer again where a dialog waits for the
// user. Scopes nest.
#pragma once

#include <QCursor>
#include <QGuiApplication>
#include <vector>

namespace quor {

class HourglassPointer {
 public:
  HourglassPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  HourglassPointer(const HourglassPointer&) = delete;
  HourglassPointer& operator=(const HourglassPointer&) = delete;
  ~HourglassPointer() { QGuiApplication::restoreOverrideCursor(); }
};

// Takes every hourglass away; they come back at its end.
class FreePointer {
 public:
  FreePointer() {
    while (QGuiApplication::overrideCursor() != nullptr) {
      taken_.push_back(*QGuiApplication::overrideCursor());
      QGuiApplication::restoreOverrideCursor();
    }
  }
  FreePointer(const FreePointer&) = delete;
  FreePointer& operator=(const FreePointer&) = delete;
  ~FreePointer() {
    for (auto cursor = taken_.rbegin(); cursor != taken_.rend(); ++cursor) QGuiApplication::setOverrideCursor(*cursor);
  }

 private:
  std::vector<QCursor> taken_;
};

}  // namespace quor
