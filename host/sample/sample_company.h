// An invented company for a first look, for tests and for measurements: a municipal administration with civil servants,
// their tariffs, length of service, extra charges and positions. The month to look at is 2008-01.
#pragma once

#include <cstdint>
#include <functional>

#include "host/store/database.h"

namespace quor {

struct SampleOptions {
  std::int32_t employees = 30;
  std::uint32_t seed = 1;
  // Called now and then with the employees written so far; may be empty.
  std::function<void(std::int32_t done, std::int32_t all)> progress;
};

// Fills `database`, an empty company, inside the open transaction. The same number and seed give the same rows on every
// machine. Every tenth person or so is an unusual case, also among 30: part of a post, two posts, a change of category,
// a post that has ended or not begun, no length of service, a charge above the limit.
void fill_sample_company(Database& database, const SampleOptions& options = {});
// The same in a transaction of its own: everything or nothing.
void make_sample_company(Database& database, const SampleOptions& options = {});

}  // namespace quor
