// The windows as a program: opens the company, loads the plug-ins, shows the main window and stays until it is closed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/data/date.h"

namespace quor {

struct DesktopOptions {
  std::string company;               // a file or a server's address
  bool company_named = false;        // by the user; else the company that was open last is looked for, too
  std::vector<std::string> plugins;  // none: those that stand beside the program
  std::string user;                  // "" for the name at the system
  std::optional<Date> today = {};
};

// Whether there is a screen to show windows on.
bool has_display();

// There must be a display. Answers when the user has closed the window: true, or false when nothing was opened. A fault
// at the start is shown in a dialog.
bool run_desktop(const DesktopOptions& options);

}  // namespace quor
