// The place of a company file that is to be made.
#pragma once

#include <string>

#include "host/store/store_error.h"

namespace quor {

// Throws StoreError when something stands at the place already, be it the journal of a company, which would be played
// into the new one, or when the place is no file's.
void require_free_place(const std::string& address);

// Why no file could be made at `address`, by the errno.
StoreError not_made(const std::string& address, int error);

}  // namespace quor
