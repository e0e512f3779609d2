// An explanation as a page of rich text. Every stored value is a link to its object's key, every reckoned input stands
// with its own words below.
#pragma once

#include <QString>

#include "host/insight/explanation.h"

namespace quor {

QString explanation_page(const Explanation& explanation);
// A page that says only why there is nothing to explain.
QString refusal_page(const QString& text);

}  // namespace quor
