#include "tests/support/window_acts.h"

#include <QDialog>
#include <QLabel>
#include <QTimer>
#include <gtest/gtest.h>

namespace quor {

namespace {

constexpr int kPatience = 1000;  // looks at a window that stays open

// The keys go to the window from now on.
bool takes_keys(QWidget& window) {
  window.activateWindow();
  return QTest::qWaitForWindowActive(&window) && QTest::qWaitFor([&] {
           return QApplication::activeWindow() == &window &&
                  (QApplication::focusWidget() == nullptr || QApplication::focusWidget()->window() == &window);
         });
}

// On a screen without a window manager nobody gives the focus back when a window closes.
QWidget* focused() {
  if (QApplication::focusWidget() == nullptr) {
    QWidget* top = QApplication::activeModalWidget();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (top == nullptr && window->isVisible()) top = window;
    }
    EXPECT_TRUE(top != nullptr && takes_keys(*top) && QApplication::focusWidget() != nullptr)
        << "nothing has the focus";
  }
  return QApplication::focusWidget();
}

void close(QWidget& window) {
  auto* const dialog = dynamic_cast<QDialog*>(&window);
  dialog != nullptr ? dialog->done(QDialog::Rejected) : window.hide();
}

}  // namespace

void bring_up(QWidget& window) {
  window.show();
  ASSERT_TRUE(takes_keys(window));
}

void type(const QString& keys) {
  for (const QChar key : keys) {
    QWidget* const place = focused();
    if (place == nullptr) return;
    if (key == '\b' || key == '\x7f') {
      QTest::keyClick(place, key == '\b' ? Qt::Key_Backspace : Qt::Key_Delete);
    } else {
      QTest::sendKeyEvent(QTest::Click, place, static_cast<Qt::Key>(key.toUpper().unicode()), QString(key),
                          key.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
    }
  }
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  if (QWidget* const place = focused()) QTest::keyClick(place, key, modifiers);
  settle();
}

// Through the window, as from the screen: the right button then asks for a menu.
void click(QWidget* widget, Qt::MouseButton button, QPoint place) {
  ASSERT_NE(widget, nullptr);
  const QPoint inside = place.isNull() ? widget->rect().center() : place;
  QTest::mouseClick(widget->window()->windowHandle(), button, Qt::NoModifier, widget->mapTo(widget->window(), inside));
  settle();
}

void settle() { QTest::qWait(1); }

NextWindows::NextWindows(std::vector<Act> acts) : acts_(std::move(acts)), timer_(new QTimer) {
  QObject::connect(timer_, &QTimer::timeout, [this] { look(); });
  timer_->setSingleShot(true);
  timer_->start(5);
}

NextWindows::~NextWindows() {
  delete timer_;
  EXPECT_EQ(next_, acts_.size()) << "a window did not come";
}

void NextWindows::look() {
  timer_->start(5);  // first: an act may wait in a window that it has opened
  QWidget* const menu = QApplication::activePopupWidget();
  QWidget* const window = menu != nullptr ? menu : QApplication::activeModalWidget();
  if (window == nullptr || !window->isVisible()) return;
  if (window->property("acted on").toBool()) {
    if (++waiting_ < kPatience) return;
    ADD_FAILURE() << "a window stays open: " << said(*window).toStdString();
    close(*window);
    return;
  }
  waiting_ = 0;
  window->setProperty("acted on", true);
  if (next_ == acts_.size()) {
    ADD_FAILURE() << "an unexpected window: " << said(*window).toStdString();
    close(*window);
    return;
  }
  const std::size_t act = next_++;
  if (menu == nullptr) {
    EXPECT_TRUE(takes_keys(*window)) << said(*window).toStdString();
  }
  acts_[act](*window);
}

QString said(const QWidget& window) {
  QStringList texts;
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->text().isEmpty()) texts << label->text();
  }
  return texts.join(" | ");
}

}  // namespace quor
