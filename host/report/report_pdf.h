// List reports as a PDF file.
#pragma once

#include <string>

#include "host/report/report_pages.h"

namespace quor {

// The bytes of the file. Needs no display: without a QGuiApplication it makes one for the time of the call. Throws
// std::runtime_error when the system has no font.
std::string report_pdf(const Reports& reports, Date printed_on, const std::string& creator);

}  // namespace quor
