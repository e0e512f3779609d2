#include "host/editors/host_editors.h"

#include "frame/contract/host_types.h"
#include "host/application/application.h"

namespace quor {

HostTypes host_editors() {
  HostTypes types;
  return types;
}

}  // namespace quor
