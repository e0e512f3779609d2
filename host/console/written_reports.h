// List reports in the format of the call.
#pragma once

#include <iosfwd>

#include "host/application/application.h"
#include "host/console/call.h"

namespace quor {

// Whether the result is shown on a terminal whose user wants colours.
bool to_terminal(const CommonOptions& options);

inline constexpr char kPdfFormat[] = "pdf", kXlsxFormat[] = "xlsx";

// Several reports: tables one below the other, CSV lines under one head, JSON a report a line, PDF page behind page,
// XLSX a sheet a report.
void write_reports(const Reports& reports, const CommonOptions& options, const Application& application,
                   std::ostream& out);

}  // namespace quor
