// Business object: answers requests for named record sets.
//
// Implemented by  the host.
// Called by       data objects, object UIs and the salary engine.
// States          none; every request stands alone.
// Units           text is UTF-8; dates inside parameter text are 'yyyy.MM.dd' between single quotes, numbers have a
//                 decimal point, elements are parted by commas.
#pragma once

#include <cstdint>
#include <string>

#include "frame/contract/method_result.h"

namespace quor {

class QuorMainBO : public Object {
 public:
  ~QuorMainBO() override;

  // Runs the request `name` ("Get" + the record set's name); `parameter` is "None" for a request without parameters.
  // `flag` is 0 for every request of today.
  // No rows is an answer, not a failure: Code 0 and an empty record set.
  // Fails with Code != 0 and a Message for the user (unknown name, parameter text that does not parse, a store that
  // cannot be read); Value is then empty.
  // The record set in Value belongs to the caller: its filter and cursor disturb nobody.
  virtual MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) = 0;
};

// The parameter text of a request that takes none.
inline constexpr char kNoParameter[] = "None";

}  // namespace quor
