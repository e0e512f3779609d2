// What the store throws when it refuses or fails.
#pragma once

#include <stdexcept>
#include <string>

namespace quor {

// Why the store refused or failed; for programs. The text of the error is for people.
enum class StoreFault {
  kMissing,           // no such company file or server
  kNotACompany,       // a file or database of something else
  kAlreadyThere,      // a company stands where a new one was to be made
  kNewerSchema,       // written by a newer program
  kNotWritable,       // the file or its folder cannot be written
  kLocked,            // another program holds it
  kChangedElsewhere,  // the record was changed or deleted by someone else
  kLost,              // the connection is gone; the next try may find it again
  kRefused,           // what a record may not say, or may not be: a value, a reference, a deletion, a closed month
  kNoFreeIds,         // every ID of a table is used up
  kOutOfTurn,         // a transaction inside another, or ended twice
  kFailed,            // anything else that the database or the system reported
};

class StoreError : public std::runtime_error {
 public:
  StoreError(StoreFault fault, const std::string& text) : std::runtime_error(text), fault_(fault) {}
  StoreFault fault() const { return fault_; }

 private:
  StoreFault fault_;
};

}  // namespace quor
