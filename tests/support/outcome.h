// What a call came to, as a text for test tables: its result, or the kind of its error ("Overflow").
// Doubles are shown with all their digits, by the C++ library and not by the code under test.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "platform/data/date.h"
#include "platform/data/error.h"

namespace quor {

inline std::string kind_text(ErrorKind kind) {
  constexpr std::array<const char*, 16> kNames = {"InvalidNull", "Overflow",        "TypeMismatch",  "NoCurrentRow",
                                                  "RowDeleted",  "NoSuchField",     "BadFilter",     "NotOpen",
                                                  "AlreadyOpen", "IndexOutOfRange", "ObjectMissing", "Refused",
                                                  "NotFound",    "AlreadyThere",    "OutOfRange",    "TooMany"};
  return kNames.at(static_cast<std::size_t>(kind));
}

inline std::string shown(const std::string& text) { return text; }
inline std::string shown(bool value) { return value ? "true" : "false"; }

template <typename Number>
std::string shown(Number value) {
  std::ostringstream out;
  out.imbue(std::locale::classic());
  out.precision(std::numeric_limits<double>::max_digits10);
  out << value;
  return out.str();
}

// A date shows as its serial.
inline std::string shown(Date date) { return shown(date.serial()); }

template <typename Call>
std::string outcome(Call call) {
  try {
    return shown(call());
  } catch (const Error& error) {
    return kind_text(error.kind());
  }
}

// The text of whatever error a call ends with; "no error" when it ends well.
template <typename Call>
std::string error_text(Call call) {
  try {
    call();
  } catch (const std::exception& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace quor
