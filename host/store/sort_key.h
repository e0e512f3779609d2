// The place of a name in the Lithuanian alphabet (… C, Č, D …, I with Į and Y, … S, Š, T …, Z, Ž) as text that every
// database orders right.
//
// A key is decimal digits only, three a byte of the collation key: hexadecimal letters would not do, since "aa" or "ch"
// count as one letter in the collation of some servers. Keys of different releases of ICU's rules need not compare, so
// a column of keys is filled by one release.
#pragma once

#include <string>
#include <string_view>

namespace quor {

std::string lithuanian_sort_key(std::string_view utf8);

}  // namespace quor
