// The object types that the host keeps itself. Both sides name them: the host's records are of them, and the plug-in
// lets the user choose among them.
//
// Implemented by  plain data.
// Called by       both sides.
// States          none.
// Units           eight-character type codes (see object_key.h).
#pragma once

namespace quor {

inline constexpr char kDepartmentType[] = "O0001604";
inline constexpr char kEmployeeType[] = "O0400100";
inline constexpr char kPersonalChargeType[] = "O0400110";  // an extra charge of an employee's own
inline constexpr char kConstantType[] = "O0400600";        // salary constants

}  // namespace quor
