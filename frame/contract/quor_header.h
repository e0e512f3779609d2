// The library's header object: tells the host what the plug-in contributes.
//
// Implemented by  the plug-in (`DLLHeader`, one instance per loaded library).
// Called by       the host, once, right after it has loaded the library.
// States          new -> initialised.
// Units           none.
#pragma once

#include "platform/data/variant.h"

namespace quor {

class QuorHeader : public Object {
 public:
  ~QuorHeader() override;

  // Registers the layout, the group, the object types and the icons. A host call that throws ends it there: steps
  // already done stay done, and the exception passes to the host.
  virtual void DllInicialize() = 0;
};

}  // namespace quor
