// The commands that copy a company and bring it back to a copy.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "host/console/call.h"

namespace quor {

struct BackupCommand {
  std::string file;  // "" for one beside the company, named by the moment
};
struct RestoreCommand {
  std::string file;
};

std::vector<std::string> files_written(const BackupCommand& command);
std::vector<std::string> files_read(const RestoreCommand& command);

ExitStatus run(const BackupCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const RestoreCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
