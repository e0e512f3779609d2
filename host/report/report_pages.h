// List reports on paper: laid out and painted on a PDF file, a printer or a print preview.
//
// A4, upright or lying as the columns need. The title and the headings stand on a report's first page, the column heads
// on every page, the day of printing and "Puslapis n iš m" at its foot. A text too long for its cell is wrapped, then
// cut with "…"; a red cell carries a mark, too.
#pragma once

#include "host/application/printed_list.h"
#include "platform/data/date.h"

class QPagedPaintDevice;

namespace quor {

// Paints each report from a new page, the pages numbered through all of them. Sets the device's page layout. Throws
// std::runtime_error when the device cannot be painted on. Needs a QGuiApplication.
void paint_reports(const Reports& reports, Date printed_on, QPagedPaintDevice& device);

}  // namespace quor
