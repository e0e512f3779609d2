// Whether a column may hold a value, for the files that come in and for the records that are saved.
#pragma once

#include <string>

#include "host/store/tables/stored_tables.h"
#include "platform/data/variant.h"

namespace quor {

// Why the column may not hold the value: "30 – leidžiama nuo 0 iki 24", with the value as `written`; "" when it may.
// A null is allowed: whether one must be there, others know.
std::string value_fault(const StoredColumn& column, const Variant& value, const std::string& written);

// The same kind and the same value, numbers to the last bit; two nulls are the same.
bool same_value(const Variant& a, const Variant& b);

}  // namespace quor
