// What Qt itself says to the user (buttons of its dialogs, context menus, the print dialog) in Lithuanian: its
// distribution has no such translation.
#pragma once

#include <QTranslator>

namespace quor {

class QtTexts : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  // A null text for what is not in the table: Qt then shows its own.
  QString translate(const char* context, const char* source, const char* disambiguation, int n) const override;
};

}  // namespace quor
