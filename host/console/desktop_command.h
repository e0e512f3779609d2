// `quor desktop`: the windows. Part of the program alone; what only calculates and prints needs none of it.
#pragma once

#include "host/console/commands.h"

namespace quor {

struct DesktopCommand {
  bool company_named = false;  // by an option or the environment
};

// Without a display it says so, and shows the salary preview of the last calculated month in the terminal instead.
ExitStatus run(const DesktopCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
