// The time codes among a company's indications.
#pragma once

namespace quor {

inline constexpr char kWorkTime[] = "WorkTime";  // the kind of indication that time codes are
inline constexpr char kBasicTimeCode[] = "FD";   // time that is worked as the norm has it; the month needs it

}  // namespace quor
