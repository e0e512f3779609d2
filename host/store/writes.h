// What a transaction is about.
#pragma once

namespace quor {

// What a transaction writes: something that a month's pay follows from (people, time, tariffs, dated rules), or only
// what followed from it or does not bear on it (documents, closed months, users, desk tops).
enum class Writes { kPayInputs, kOther };

}  // namespace quor
