// List reports as a workbook for spreadsheets: a sheet a report.
//
// The title lines stand on top, below them the heads, bold, which stay when one scrolls and come again on each printed
// page. A cell of a column of numbers is a number or a percentage where its text is one, with as many decimals as the
// text; a date is a date; every other cell is its text, never a formula. Red and grey cells are so.
#pragma once

#include <string>

#include "host/application/printed_list.h"
#include "platform/data/date.h"

namespace quor {

// The bytes of the file, the same for the same reports and day. Throws std::runtime_error when a report has more than a
// sheet takes, or the system does not let it be made.
std::string report_xlsx(const Reports& reports, Date made_on);

}  // namespace quor
