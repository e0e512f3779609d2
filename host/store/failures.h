// What a database reports, as a StoreError for people: the fault by the database's own code, the reason in words of
// ours. Neither SQL nor a text of the database or of the system, which would be in another language, is shown.
#pragma once

#include <chrono>
#include <soci/soci.h>
#include <string>

#include "host/store/store_error.h"

namespace quor {

// A statement on the company `name` failed.
StoreError translated(const soci::soci_error& error, const std::string& name);

// Connecting to a server failed after `waited`. Asks it once more, to learn why.
StoreError unreachable(const std::string& name, const std::string& connect_text, std::chrono::milliseconds waited);

}  // namespace quor
