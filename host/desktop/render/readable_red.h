// The red of what is over its limit, on any ground: a light theme's, a dark one's, a selected row's.
#pragma once

#include <QColor>

namespace quor {

// The red that is usual on such a ground, or where it cannot be read, the one that stands out most.
QColor red_on(const QColor& ground);

}  // namespace quor
