// The calendar that every date of the program drops down: Lithuanian, from Monday on.
#pragma once

#include <QDate>
#include <QWidget>
#include <functional>

class QCalendarWidget;

namespace quor {

void set_up_calendar(QCalendarWidget& calendar);

// Drops a calendar down under the widget. A day that the user chooses, by a click or Enter, is told once the calendar
// has gone, while the widget lives; Esc tells nothing.
void show_calendar(QWidget& under, QDate shown, std::function<void(QDate)> chosen);

}  // namespace quor
