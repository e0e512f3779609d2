// The place of a name in the Lithuanian alphabet (… C, Č, D …, I with Į and Y, … S, Š, T …, Z, Ž) as text that every
// database orders right; digits count as the number that they make, "A 5" before "A 10".
//
// A key is decimal digits only, three a byte of the collation key: hexadecimal letters would not do, since "aa" or "ch"
// count as one letter in the collation of some servers. Keys of different rules, ours or those of another
// release of ICU, need not compare, so a column of keys is filled by one: see stored_sort_keys.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quor {

std::string lithuanian_sort_key(std::string_view utf8);

// By which rule the keys are made: the larger, the newer.
std::int32_t sort_key_rule();

}  // namespace quor
