// The object types that the host keeps itself. Both sides name them: the host's records are of them, and the plug-in
// lets the user choose among them.
//
// Implemented by  plain data.
// Called by       both sides.
// States          none.
// Units           eight-character type codes (see object_key.h); what stands behind the code in a key is the record's
//                 ID where nothing else is said.
#pragma once

namespace quor {

inline constexpr char kDepartmentType[] = "O0001604";
inline constexpr char kEmployeeType[] = "O0400100";
inline constexpr char kPersonalChargeType[] = "O0400110";  // an extra charge of an employee's own
inline constexpr char kConstantType[] = "O0400600";        // salary constants
inline constexpr char kWorkedTimeType[] = "O0400200";      // of a month: the serial day number of its first day
inline constexpr char kMonthType[] = "O0400300";           // a month's pay: likewise
inline constexpr char kNormType[] = "O0400610";            // the norms of a year: the year
inline constexpr char kTimeCodeType[] = "O0400620";
inline constexpr char kSalaryCodeType[] = "O0400630";

}  // namespace quor
