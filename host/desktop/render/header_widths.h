// Widths of columns as the user has left them, kept between starts by the list's name.
#pragma once

#include <QHeaderView>
#include <QString>

namespace quor {

// Gives the columns the widths that were kept under `name`, if the list had as many columns then, and keeps every width
// that the user gives them from now on. False when nothing was kept.
bool remember_widths(QHeaderView& header, const QString& name);

}  // namespace quor
