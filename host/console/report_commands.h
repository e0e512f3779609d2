// The commands that print a list report of the plug-in: the previews of a month, the list of categories.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "host/console/commands.h"

namespace quor {

struct PreviewCommand {
  std::string kind;  // "salary" or "supplements"
  std::string month;
  std::optional<std::int32_t> department;
};
struct PrintCommand {
  std::string what;  // "categories"
};

// Formats: also "pdf", which needs a file to go to.
ExitStatus run(const PreviewCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const PrintCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
