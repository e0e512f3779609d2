// `UIO0402100`: the data object of a tarification. Its named data: "Parent".
#pragma once

#include "frame/forwarding_object.h"

namespace velmora {

class UIO0402100 : public ForwardingObject {
 public:
  explicit UIO0402100(quor::QuorApplication& application);
};

}  // namespace velmora
