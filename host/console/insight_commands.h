// The commands that explain and look ahead: `quor explain`.
#pragma once

#include <iosfwd>
#include <string>

#include "host/console/call.h"

namespace quor {

struct ExplainCommand {
  std::string month;
  std::string employee;  // the ID, the key, or the name or how it begins
};

ExitStatus run(const ExplainCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
