// The one exception of the platform: a promise was broken (a wrong type, no current row, a filter that does not parse),
// or what was asked for is refused.
//
// Refusals and failures that a person can meet travel as MethodResult or SaveStatus; `Error` reaches the host's edge,
// which shows its text and goes on with nothing half written.
#pragma once

#include <stdexcept>
#include <string>

namespace quor {

// What the caller does next; why, the text says.
enum class ErrorKind {
  kInvalidNull,      // a null where a value is needed
  kOverflow,         // a number, date or text that does not fit its type
  kTypeMismatch,     // a value that does not convert
  kNoCurrentRow,     // the record set stands on no row
  kRowDeleted,       // the current row was deleted
  kNoSuchField,      // the record set has no field of that name
  kBadFilter,        // a filter text that does not parse, or a literal that does not fit its field
  kNotOpen,          // the record set is not open yet
  kAlreadyOpen,      // the record set is open: its fields are fixed
  kIndexOutOfRange,  // an array element or a parameter that is not there
  kObjectMissing,    // a null reference where an object is needed
  kRefused,          // not allowed, or not now: by a rule, by a right, by whoever was asked
  kNotFound,         // what was named (a person, a type, a tariff of a date) is not there
  kAlreadyThere,     // a second one of a name that may stand once
  kOutOfRange,       // a value outside the range of what it tells
  kTooMany,          // more rows, levels or people than can be held
};

class Error : public std::runtime_error {
 public:
  // `text` is for the user (Lithuanian, UTF-8) and names the value, the field or the filter at fault.
  Error(ErrorKind kind, const std::string& text) : std::runtime_error(text), kind_(kind) {}
  ErrorKind kind() const { return kind_; }

 private:
  ErrorKind kind_;
};

}  // namespace quor
