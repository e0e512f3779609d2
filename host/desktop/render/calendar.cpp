#include "host/desktop/render/calendar.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QLocale>
#include <QVBoxLayout>

namespace quor {

void set_up_calendar(QCalendarWidget& calendar) {
  calendar.setLocale(QLocale(QLocale::Lithuanian, QLocale::Lithuania));
  calendar.setFirstDayOfWeek(Qt::Monday);
  calendar.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
}

void show_calendar(QWidget& under, QDate shown, std::function<void(QDate)> chosen) {
  auto* const popup = new QFrame(&under, Qt::Popup);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setFrameShape(QFrame::StyledPanel);
  auto* const calendar = new QCalendarWidget(popup);
  set_up_calendar(*calendar);
  calendar->setSelectedDate(shown);
  auto* const column = new QVBoxLayout(popup);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(calendar);
  const auto choose = [popup, &under, chosen = std::move(chosen)](QDate date) {
    QMetaObject::invokeMethod(
        &under, [chosen, date] { chosen(date); }, Qt::QueuedConnection);
    popup->close();
  };
  QObject::connect(calendar, &QCalendarWidget::clicked, popup, choose);
  QObject::connect(calendar, &QCalendarWidget::activated, popup, choose);
  popup->move(under.mapToGlobal(QPoint(0, under.height())));
  popup->show();
  calendar->setFocus();
}

}  // namespace quor
