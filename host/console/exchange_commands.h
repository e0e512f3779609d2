// The commands that bring data in and out of a company, and the empty company to bring them into.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/console/call.h"

namespace quor {

// Either a table or, with `folder`, all of them.
struct ExportCommand {
  std::string table;
  std::string folder;
};
struct ImportCommand {
  std::string table;  // with a file behind it; a word alone is the file
  std::string file;
  std::string folder;
  std::string mapping;       // the file that says what foreign heads mean
  bool dry_run = false;      // shows what would come in
  bool into_closed = false;  // rows may reach into closed months
};

// Which files the command reads and where it writes some, by its words alone; throws UsageError.
std::vector<std::string> files_written(const ExportCommand& command);
std::vector<std::string> files_read(const ImportCommand& command);

ExitStatus run(const ExportCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const ImportCommand& command, const CommonOptions& options, std::ostream& out);

// A company with its schema and nothing in it.
ExitStatus make_empty_company(const CommonOptions& options, std::ostream& out);

}  // namespace quor
