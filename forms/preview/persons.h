// The persons of a preview: how their rows follow one another, and what other record sets hold of each.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/data/error.h"
#include "platform/data/recordset.h"

namespace velmora {

// One more of a 16-bit count of `what` (in the genitive plural); throws Overflow past 32,767.
inline std::int16_t counted(std::int16_t count, const char* what) {
  if (count == INT16_MAX) {
    throw quor::Error(quor::ErrorKind::kOverflow,
                      "Sąraše negali būti daugiau kaip " + std::to_string(INT16_MAX) + " " + what + ".");
  }
  return static_cast<std::int16_t>(count + 1);
}

// A walk over rows of which those of one person stand together: each change of the ID is another person, also one that
// was met before.
class PersonRun {
 public:
  // Whether the row begins a new person. Throws Overflow past 32,767 persons.
  bool begins(std::int32_t user) {
    if (user == user_) return false;
    number_ = counted(number_, "asmenų");
    user_ = user;
    return true;
  }
  std::int32_t user() const { return user_; }      // -1 before the first
  std::int16_t number() const { return number_; }  // from 1

 private:
  std::int32_t user_ = -1;
  std::int16_t number_ = 0;
};

// Every record from the first to the last; none of a missing set.
template <typename Visit>
void for_each_record(quor::Recordset* records, const Visit& visit) {
  if (records == nullptr || records->RecordCount() == 0) return;
  for (records->MoveFirst(); !records->Eof(); records->MoveNext()) visit();
}

// Records of many persons, found by person; those of one person in the order in which they came.
template <typename Record>
class ByPerson {
 public:
  struct Entry {
    std::int32_t person;
    Record record;
  };

  void reserve(std::size_t records) { entries_.reserve(records); }
  void add(std::int32_t person, Record record) {
    sorted_ = sorted_ && (entries_.empty() || entries_.back().person <= person);
    entries_.push_back({person, std::move(record)});
  }

  std::span<const Entry> of(std::int32_t person) {
    const auto by_person = [](const Entry& one, const Entry& other) { return one.person < other.person; };
    if (!sorted_) std::stable_sort(entries_.begin(), entries_.end(), by_person);
    sorted_ = true;
    const auto [first, last] = std::equal_range(entries_.begin(), entries_.end(), Entry{person, {}}, by_person);
    return {first, last};
  }

 private:
  std::vector<Entry> entries_;
  bool sorted_ = true;
};

}  // namespace velmora
