#include "host/desktop/render/date_edit.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "host/desktop/render/calendar.h"

namespace quor {

DateEdit::DateEdit(DatePicker& picker, FormActs& acts, QWidget* parent)
    : QDateEdit(parent), picker_(picker), acts_(acts) {
  setLocale(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
  setDisplayFormat("yyyy.MM.dd");
  setCalendarPopup(true);
  set_up_calendar(*calendarWidget());
  setMinimumDate(QDate(100, 1, 1));
  setKeyboardTracking(false);  // a date counts when it is whole
  setContextMenuPolicy(Qt::NoContextMenu);
  lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QDateEdit::dateChanged, this, [this](QDate date) {
    acts_.act([&] { picker_.pick(Date::from_ymd(date.year(), date.month(), date.day())); });
    show_change(ControlChange::kContent);  // the form may have put another date
  });
  show_change(ControlChange::kState);
  show_change(ControlChange::kContent);
}

void DateEdit::show_change(ControlChange change) {
  if (change == ControlChange::kState) {
    setEnabled(picker_.enabled());
    setVisible(picker_.visible());
    return;
  }
  const QSignalBlocker blocker(this);
  setDate(QDate(picker_.value().year(), picker_.value().month(), picker_.value().day()));
}

// Scrolling a window must not change a date under the pointer.
void DateEdit::wheelEvent(QWheelEvent* event) { event->ignore(); }

// Tab leaves the date as a whole; typing goes on from year to month to day by itself.
bool DateEdit::focusNextPrevChild(bool next) { return QWidget::focusNextPrevChild(next); }

}  // namespace quor
