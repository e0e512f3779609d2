// A list report as text: an aligned table for people, CSV and JSON for other programs, all from the same lines.
#pragma once

#include <string>

#include "host/application/printed_list.h"
#include "host/text/csv_cells.h"

namespace quor {

// Stands behind a red cell wherever people read: colour alone is no sign.
inline constexpr char kRedMark = '!';

struct TableStyle {
  bool wrapped_heads = false;  // a caption takes a line for each word that does not fit above its cells
  bool colours = false;        // red and grey as a terminal shows them
};

// The title and the headings, where there are any; then aligned columns with a line under the heads. Widths count
// characters. A column with a red cell has a place for its mark behind every cell.
std::string table_text(const ReportData& report, const TableStyle& style);

// RFC 4180, UTF-8, lines ended by CR LF: the captions and the lines, without title, colours or marks. No cell is a
// formula to a spreadsheet (csv_cells.h). Several reports make one text: the first by csv_text, the others by
// csv_lines.
std::string csv_text(const ReportData& report, const CsvStyle& style = kProgramCsv);
// The lines alone.
std::string csv_lines(const ReportData& report, const CsvStyle& style = kProgramCsv);

// {"title":…,"headings":[…],"columns":[{"key":…,"caption":…}],"lines":[[…]],"red":[{"line":…,"key":…}]}: every cell a
// text, lines counted from 0.
std::string json_text(const ReportData& report);

}  // namespace quor
