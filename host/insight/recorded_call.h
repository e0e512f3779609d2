// What the engine was asked, what it asked for meanwhile, and at which rows it stood: plain data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/insight/explained_amount.h"
#include "platform/data/variant.h"

namespace quor {

// The fields and values of one row; empty where there was none.
struct RecordedRow {
  std::vector<std::pair<std::string, Variant>> values = {};

  bool empty() const { return values.empty(); }
  // Null for a field that the row does not have.
  Variant operator[](std::string_view field) const;
};

struct RecordedRequest {
  std::string name;                         // "GetSalaryConstants"
  std::string parameter;                    // "'2008.01.31'"
  std::string failure;                      // its Message; "" when it answered
  RecordedRow row = {};                     // at which the engine stood when its method had ended: the one that it read
  std::optional<StoredSource> source = {};  // where that row is stored; none before it was looked up
};

struct RecordedCall {
  std::string method;
  std::vector<Variant> parameters;  // a record set or an object is left out as Empty
  std::int32_t code = 0;
  std::string message;
  Variant value;         // Empty where it is a record set
  RecordedRow row = {};  // of that record set
  std::vector<RecordedRequest> requests = {};

  // The last one of that name; null without one.
  const RecordedRequest* request(std::string_view name) const;
};

}  // namespace quor
