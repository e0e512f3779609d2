// Values and record sets as JSON, both ways.
//
//   record set   {"fields":[{"name":…,"type":…}],"rows":[[…]]}, types int16 int32 double bool date text recordset
//   date         "2008-01-31"; null is null; a number without fraction is written without a decimal point
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "frame/contract/method_result.h"
#include "platform/data/recordset.h"

namespace quor {

using Json = nlohmann::ordered_json;

// A text that holds JSON nested deeper is refused: nothing here needs more, and every level of it takes a piece of the
// program's stack.
inline constexpr int kDeepestJson = 64;

// The JSON that the text is, discarded when it is none. Throws quor::Error that names `what` when it is nested deeper.
Json parse_json(const std::string& text, const std::string& what);

Json to_json(const Variant& value);
Json to_json(Recordset& rows);  // of the view; the cursor ends after the last row

// A record set in the form above. Throws quor::Error naming the field or value that does not fit.
std::shared_ptr<Recordset> record_set_from_json(const Json& json);

}  // namespace quor
