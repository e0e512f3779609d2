// Columns as SQL that reads null for what no field holds or nobody can compute with.
//
// Numbers and dates outside their ranges (host/store/tables/value_ranges.h) may stand in a company from before these
// were held to. One of them must not keep a whole record set from everybody; where it is paid by, the calculation of
// the month reads what is stored and names whose it is.
#pragma once

#include <string>

namespace quor {

inline std::string readable_between(const std::string& column, const std::string& low, const std::string& high) {
  return "CASE WHEN " + column + " BETWEEN " + low + " AND " + high + " THEN " + column + " END";
}

// Fits a field of 16 bits.
inline std::string readable_int16(const std::string& column) { return readable_between(column, "-32767", "32767"); }
// Fits a field of 32 bits: a service that is none is shown, so that it can be mended.
inline std::string readable_service(const std::string& column) {
  return readable_between(column, "-2147483647", "2147483647");
}
// Below a trillion, so that no product or sum of a few overflows; no infinity.
inline std::string readable_number(const std::string& column) {
  return readable_between(column, "-1000000000000", "1000000000000");
}
// A day of the calendar, from the year 100 to 9999.
inline std::string readable_date(const std::string& column) { return readable_between(column, "-657434", "2958465"); }

}  // namespace quor
