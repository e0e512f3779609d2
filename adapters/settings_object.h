// `UIO0402300`: the data object of one dated version of the civil-servant settings. Its named data: "Parent", and what
// the settings editor asks for: "Indications", "SalaryCodes", "OfficeEmployeeSettings" and "SalaryConstants".
#pragma once

#include "frame/forwarding_object.h"

namespace velmora {

class UIO0402300 : public ForwardingObject {
 public:
  explicit UIO0402300(quor::QuorApplication& application);
};

}  // namespace velmora
