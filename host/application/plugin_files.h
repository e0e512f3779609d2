// Which plug-in libraries a program loads: those that its user names, or else every one that stands beside the program.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/application/application.h"

namespace quor {

// Told of a library that was found, and is left out: why.
using SkippedPlugin = std::function<void(const std::string& text)>;

// Loads the named libraries, in that order; throws PluginError or quor::Error for the first that cannot be loaded.
// Without any, loads what stands beside the program, as load_plugins_in does.
void load_plugins(Application& application, const std::vector<std::string>& named, const SkippedPlugin& skipped);

// Loads each plug-in of the folder, by name: its files "lib….so" that have the entry of a plug-in. Other libraries are
// not entered at all. One that cannot be loaded is told of and left out; throws PluginError when none is left.
void load_plugins_in(Application& application, const std::string& folder, const SkippedPlugin& skipped);

}  // namespace quor
