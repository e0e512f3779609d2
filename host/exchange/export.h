// Writes the tables of a company as CSV, so that importing the files into an empty company gives the same company.
//
// UTF-8, parted by commas, lines ended by CR LF. Numbers are in the shortest form that reads back to the same number.
#pragma once

#include <string>

#include "host/exchange/tables.h"
#include "host/store/database.h"

namespace quor {

std::string export_table(Database& database, const ExchangedTable& table);

// Every table as FOLDER/TABLE.csv, all of the same moment. The folder is made, or stands empty. Throws StoreError, or
// std::runtime_error about the folder or a file of it; no file is left then.
void export_company(Database& database, const std::string& folder);

}  // namespace quor
