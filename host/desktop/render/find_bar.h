// The line under a list in which one says what is searched for, and whether the marked rows alone are shown.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "host/desktop/render/folded_text.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace quor {

class FindBar : public QWidget {
 public:
  explicit FindBar(QWidget* parent);

  // Finds the text; none when no row has it.
  std::function<std::optional<FoundCell>(const QString& text, SearchFrom from)> on_find;
  std::function<void(bool marked_only)> on_marked;
  std::function<void()> on_close;
  // A key that moves in the list.
  std::function<void(QKeyEvent& event)> on_move;

  void focus_text();
  bool searches() const;
  // Finds once more; says how it went.
  void find(SearchFrom from);
  void forget_text();
  // `shown` of `all` rows.
  void show_rows(bool marked_only, int shown, int all);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* text_;
  QLabel* told_;
  QCheckBox* marked_;
};

}  // namespace quor
