// What the program holds on to while it runs: its standard streams, and the files that a result must not destroy.
#pragma once

#include <string>
#include <vector>

#include "host/console/commands.h"

namespace quor {

// Takes the places of standard streams that the caller has closed: the next file or connection to open would else get
// their numbers, and what is said to people would go into it. Reading and writing them goes on failing.
void hold_standard_streams();

// Throws, before anything is done, when the result would go where the company stands or may come to stand, onto a
// company at all, or onto one of the files `read`. `written` are further places that the command itself writes.
void refuse_harmful_output(const CommonOptions& options, const std::vector<std::string>& read,
                           const std::vector<std::string>& written);

}  // namespace quor
