// What a person does to windows, by mouse and keys as they come from the screen.
#pragma once

#include <QApplication>
#include <QString>
#include <QTest>
#include <functional>

#include "host/desktop/edge/edge.h"
#include "host/desktop/render/form_view.h"

namespace quor {

// The edge of the test program.
Edge& test_edge();

// Shown and active, as on a desk.
void bring_up(QWidget& window);

// Types into what has the focus: "\b" is Backspace, "\x7f" Delete.
void type(const QString& keys);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton, QPoint place = {});
// Lets everything happen that waits.
void settle();

// Acts on each of the next dialogs (menus are dialogs here), in their order, as soon as it is there.
class NextWindows {
 public:
  using Act = std::function<void(QWidget&)>;
  explicit NextWindows(std::vector<Act> acts);
  NextWindows(const NextWindows&) = delete;
  NextWindows& operator=(const NextWindows&) = delete;
  ~NextWindows();  // fails the test when one did not come; one that stays open fails it, too

 private:
  void look();
  std::vector<Act> acts_;
  std::size_t next_ = 0;
  int waiting_ = 0;
  QTimer* timer_;
};

// The texts of all its visible labels.
QString said(const QWidget& window);
// The one child of that class.
template <typename Widget>
Widget& only(const QWidget& parent) {
  const auto found = parent.findChildren<Widget*>();
  if (found.size() != 1) throw std::runtime_error("not one but " + std::to_string(found.size()));
  return *found.front();
}

}  // namespace quor
