// A record set as text for people and for other programs: an aligned table, or CSV.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/application/printed_list.h"
#include "host/text/csv_cells.h"
#include "platform/data/recordset.h"

namespace quor {

// One column of a printed record set.
struct TextColumnLayout {
  std::string field;    // of the record set
  std::string caption;  // its head
  int decimals = -1;    // fixed decimals of a number; -1 for its shortest form
};

// Every field of the record set under its own name.
std::vector<TextColumnLayout> all_fields(const Recordset& rows);

// The record set as a list report without a title: each value its text, numbers to the right.
ReportData record_report(Recordset& rows, const std::vector<TextColumnLayout>& columns);

// Aligned columns, numbers to the right, a line under the heads. Widths count characters.
std::string table_text(Recordset& rows, const std::vector<TextColumnLayout>& columns);

// RFC 4180, UTF-8, lines ended by CR LF; numbers in full and without an exponent, dates as 2008-01-31.
std::string csv_text(Recordset& rows, const std::vector<TextColumnLayout>& columns,
                     const CsvStyle& style = kProgramCsv);

}  // namespace quor
