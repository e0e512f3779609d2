// Brings CSV files into a company: everything in them, or nothing.
//
// A file has the columns of its table (see stored_tables.h) in any order, under their names, what people call them, or
// what a mapping says; optional ones may be missing: an update then leaves them as they are, a new row has nothing
// there. A row whose key is stored is changed when it differs, any other is
// added; no row is removed. Every row of a file is held to what a company may hold, those too that stand there already.
// A month that is closed takes no worked time and no documents, and dated rows that reach into one (another tariff,
// position, charge … on a day of it) only from whoever says so.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/company/rights_guard.h"
#include "host/exchange/import_file.h"
#include "host/exchange/imported_row.h"

namespace quor {

struct ImportSource {
  const StoredTable* table;
  std::string file;
  HeadMapping mapping = {};
};

struct ImportedTable {
  ImportSource source;
  std::size_t added;
  std::size_t changed;
  std::size_t unchanged;
  std::vector<ImportFault> warnings = {};  // what is possible but odd; it is written all the same
  std::vector<ImportedRow> first = {};     // of the rows added and changed, by line
};

// The files are not as they should be; nothing was written. The text has one line for every fault of every file:
// "darbuotojai.csv:12: stulpelis „name“ (pavardė ir vardas): trūksta reikšmės".
class ImportRefused : public std::runtime_error {
 public:
  explicit ImportRefused(std::vector<ImportFault> faults, bool into_closed = false);
  const std::vector<ImportFault>& faults() const { return faults_; }
  // Nothing is wrong but that rows reach into closed months: with IntoClosed::kAgreed they come in.
  bool into_closed() const { return into_closed_; }

 private:
  std::vector<ImportFault> faults_;
  bool into_closed_;
};

// Whether rows may reach into closed months; their documents stay as they are.
enum class IntoClosed { kRefused, kAgreed };

// kTry does everything and takes it back: the answer is what an import would do, the faults are those that it would
// find, and nothing is written.
enum class ImportRun { kWrite, kTry };

// Imports the files, one a table, in one transaction; files that refer to each other may come in any order. When
// nothing differs nothing is committed. The user is kept with the records that change. Throws Error when the user may
// not bring in one of the tables (see table_rights.h) or when the users would be left without an administrator,
// ImportRefused, StoreError, or std::runtime_error for a file that cannot be read; nothing is written then.
std::vector<ImportedTable> import_tables(RightsGuard& guard, std::vector<ImportSource> sources,
                                         IntoClosed into_closed = IntoClosed::kRefused,
                                         ImportRun run = ImportRun::kWrite);

// The files of a folder that are named like a table: TABLE.csv. Throws std::runtime_error when there are none, or other
// CSV files beside them.
std::vector<ImportSource> sources_of_folder(const std::string& folder);

}  // namespace quor
