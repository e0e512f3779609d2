// How a dialog tells that what it wanted to store was refused.
#pragma once

#include "frame/contract/quor_application.h"
#include "frame/contract/quor_object_uio.h"

namespace quor {

// Whether it was stored; a refusal is shown to the user.
bool stored_or_told(QuorApplication& application, const SaveStatus& status);

}  // namespace quor
