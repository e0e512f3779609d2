// A person's month on paper: each amount, and how it came about.
#pragma once

#include "host/application/printed_list.h"
#include "host/insight/explanation.h"

namespace quor {

// `office` is the office's name. A limit that is exceeded, a fault and what was refused are red.
ReportData pay_slip(const Explanation& explanation, const std::string& office);

}  // namespace quor
