// An object whose members are read by name, such as the host's row editor of a salary extension.
//
// Implemented by  the host.
// Called by       the salary engine.
// States          none.
// Units           as the member's own.
#pragma once

#include <string_view>

#include "platform/data/variant.h"

namespace quor {

class NamedMembers : public Object {
 public:
  ~NamedMembers() override;
  // The member's value now. Throws NoSuchField when there is no member of that name (letter case counts).
  virtual Variant member(std::string_view name) const = 0;
};

}  // namespace quor
