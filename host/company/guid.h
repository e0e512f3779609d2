// Globally unique identifiers.
#pragma once

#include <string>

namespace quor {

// A fresh random identifier (version 4), upper case: "3F2504E0-4F89-41D3-9A0C-0305E82C3301".
std::string new_guid();

// The identifier that belongs to a name, always the same (version 5), upper case.
std::string named_guid(const std::string& name);

}  // namespace quor
