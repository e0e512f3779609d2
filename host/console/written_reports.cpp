#include "host/console/written_reports.h"

#include <cstdlib>
#include <iostream>
#include <unistd.h>

#include "host/report/report_pdf.h"
#include "host/report/report_text.h"
#include "host/report/report_xlsx.h"

namespace quor {

bool to_terminal(const CommonOptions& options) {
  return options.output.empty() && isatty(STDOUT_FILENO) == 1 && std::getenv("NO_COLOR") == nullptr;
}

void write_reports(const Reports& reports, const CommonOptions& options, const Application& application,
                   std::ostream& out) {
  if (options.format == kPdfFormat) {
    out << report_pdf(reports, application.Today(), application.Title());
    return;
  }
  if (options.format == kXlsxFormat) {
    out << report_xlsx(reports, application.Today());
    return;
  }
  bool first = true;
  for (const auto& report : reports) {
    if (options.format == "json") {
      out << json_text(*report);
    } else if (const auto style = csv_style_named(options.format)) {
      out << (first ? csv_text(*report, *style) : csv_lines(*report, *style));
    } else {
      out << (first ? "" : "\n") << table_text(*report, {.wrapped_heads = true, .colours = to_terminal(options)});
    }
    first = false;
  }
}

}  // namespace quor
