// Which folder's tables of cases the user wants to try.
#pragma once

#include <QString>

class QWidget;

namespace quor {

// The folder that is shipped with the program: beside it, among its data, or in the sources that it was built from; ""
// where there is none.
QString shipped_rules();

// Asks with the shipped folder chosen, or without one that of the last time; "" when the user gives up.
QString ask_for_rules(QWidget& above);

}  // namespace quor
