// What every by-name call answers, on both sides of the contract.
//
// Implemented by  plain data.
// Called by       whoever runs a named method or asks for named data.
// States          Code 0: success; any other Code: a failure, and Value must not be used.
// Units           Message is UTF-8 text for the user; lines are parted by CR LF.
#pragma once

#include <cstdint>
#include <string>

#include "platform/data/variant.h"

namespace quor {

struct [[nodiscard]] MethodResult {
  std::int32_t Code = 0;
  std::string Message;
  Variant Value;
};

// The failures that the plug-in reports itself. Two engine methods answer codes of their own.
inline constexpr std::int32_t kPluginFailure = 777;

inline constexpr char kLineBreak[] = "\r\n";

// What `Read` and `Save` of a data object answer.
struct [[nodiscard]] SaveStatus {
  bool Failed = false;
  std::string ErrorText;  // for the user; empty on success
  bool Gone = false;      // of a failed Read: there is no such record, which is an answer and no fault
};

}  // namespace quor
