// What Qt itself says to the user (buttons of its dialogs, context menus, the file and print dialogs) in Lithuanian:
// our own words for what every window says, then the translation that is installed beside Qt.
#pragma once

#include <QTranslator>

namespace quor {

class QtTexts : public QTranslator {
 public:
  QtTexts();
  bool isEmpty() const override { return false; }
  // A null text for what is in neither: Qt then shows its own.
  QString translate(const char* context, const char* source, const char* disambiguation, int n) const override;

 private:
  QTranslator installed_;
};

}  // namespace quor
