// The host's own types and their forms: one line a type.
#pragma once

#include "host/application/host_type_acts.h"

namespace quor {

HostTypes host_editors();

}  // namespace quor
