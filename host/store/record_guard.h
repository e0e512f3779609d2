// What keeps two people from overwriting each other's record: who changed it, and when.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/store/database.h"

namespace quor {

// The moment of a change as it is kept with the record: "2008.01.31 14:05".
std::string change_time();

// The save that came second: throws StoreError (kChangedElsewhere) saying who changed or that someone deleted it.
[[noreturn]] void throw_changed_elsewhere(Database& database, std::string_view table, std::int32_t id);

}  // namespace quor
