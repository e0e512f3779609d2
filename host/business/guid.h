#pragma once

#include <string>

namespace quor {

// A fresh random identifier (version 4), upper case: "3F2504E0-4F89-41D3-9A0C-0305E82C3301".
std::string new_guid();

}  // namespace quor
