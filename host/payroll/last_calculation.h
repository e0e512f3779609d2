// Of which state of the company a month's calculation is.
#pragma once

#include <cstdint>
#include <string>

#include "host/store/database.h"
#include "platform/data/month.h"

namespace quor {

// Two equal ones: neither anything that pay follows from nor a document of the month was written in between.
struct MonthStamp {
  std::int64_t inputs;  // see Database::pay_inputs_count
  std::int32_t documents;
  std::int32_t newest_id;  // IDs are given once

  bool operator==(const MonthStamp&) const = default;
};
MonthStamp month_stamp(Database& database, const Month& month);

// The last calculation of everybody.
enum class LastCalculation {
  kNone,     // not yet, or by a program that did not remember it
  kEarlier,  // something that pay follows from has changed since
  kOfToday,
};

LastCalculation last_calculation(Database& database, const Month& month);

// Remembers that everybody's documents are of the count `inputs` (see Database::pay_inputs_count), unless that is past,
// and that `user` calculated them now. Writes nothing when it is known. Answers false when it is past. Throws
// StoreError.
[[nodiscard]] bool note_last_calculation(Database& database, const Month& month, std::int64_t inputs,
                                         const std::string& user);

// "2008.02.03 14:10, Ona": when everybody was calculated last and by whom; "" when nobody has noted it.
std::string last_calculated(Database& database, const Month& month);

// Whether anybody was calculated, if only in a department, or by a program that remembered no calculations. Throws
// StoreError.
bool was_calculated(Database& database, const Month& month);

}  // namespace quor
