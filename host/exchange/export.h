// Writes the tables of a company as CSV, so that importing the files into an empty company gives the same company.
//
// UTF-8, lines ended by CR LF. Numbers have as many digits as read back to the same number, and no exponent; an import
// takes every style.
#pragma once

#include <memory>
#include <string>

#include "host/company/rights_guard.h"
#include "host/store/tables/stored_tables.h"
#include "host/text/csv_cells.h"

namespace quor {

// Throws StoreError, and Error when the user may not view what the table holds.
std::string export_table(RightsGuard& guard, const StoredTable& table, const CsvStyle& style = kProgramCsv);

// The same rows as a record set with the file's columns; months, and days that may be months, are texts.
std::shared_ptr<Recordset> table_rows(RightsGuard& guard, const StoredTable& table);

// Every table as FOLDER/TABLE.csv, all of the same moment. The folder is made, its owner's alone, or stands empty.
// Throws Error when the user may not view what is in one of the tables, StoreError, or std::runtime_error about the
// folder or a file of it; no file is left then.
void export_company(RightsGuard& guard, const std::string& folder, const CsvStyle& style = kProgramCsv);

}  // namespace quor
