// The dates that stand for the open bounds of what holds for a time, so that a filter by dates finds it.
//
// Implemented by  plain functions.
// Called by       both sides: the host answers them in record sets, editors show them as nothing.
// States          none.
// Units           days without a time.
#pragma once

#include <string>

#include "platform/data/variant.h"

namespace quor {

Date open_start();  // 1990.01.01
Date open_end();    // 2999.12.31

// A bound as its editors show it: "" for null and for the date that stands for an open one.
std::string bound_text(const Variant& date, Date open);

}  // namespace quor
