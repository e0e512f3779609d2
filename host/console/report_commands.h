// The commands that print a list report of a plug-in: the previews of a month, and what its menus print.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "host/console/commands.h"

namespace quor {

struct PreviewCommand {
  std::optional<std::string> kind;  // the word of a preview's menu entry; none: the first preview there is
  std::string month;
  std::optional<std::int32_t> department;
};
struct PrintCommand {
  std::string what;  // the word of a menu entry that prints
};

// Formats: also "pdf", which needs a file to go to.
ExitStatus run(const PreviewCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const PrintCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
