// A filter made ready for one record set: fields resolved, literals converted to the fields' types.
//
// Null rules: `F = Null` and `F <> Null` test for a null; every other clause fails on a null, `<>` too.
// Numbers, bools (true is -1) and dates compare as Doubles, texts without regard to letter case.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/column.h"

namespace quor {

class CompiledFilter {
 public:
  enum class Test : std::uint8_t {
    kIsNull,
    kIsNotNull,
    kEqual,
    kNotEqual,
    kLess,
    kLessEqual,
    kGreater,
    kGreaterEqual,
    kStartsWith,
    kContains
  };
  struct Clause {
    std::size_t field = 0;
    Test test = Test::kIsNull;
    double number = 0.0;  // numbers, bools, dates
    std::string text;     // texts
  };

  // Throws BadFilter, or NoSuchField for a name that no column has. `text` is not empty.
  CompiledFilter(std::string_view text, const std::vector<ColumnData>& columns);

  bool passes(const std::vector<ColumnData>& columns, std::size_t row) const;

  // The clauses when all of them must hold; none when the filter has an OR.
  const std::vector<Clause>* and_list() const { return list_ends_.size() == 1 ? &clauses_ : nullptr; }

 private:
  std::vector<Clause> clauses_;
  std::vector<std::size_t> list_ends_;  // clauses_[0, ends[0]) are the first AND list, and so on
};

// The column of that name, letter case not counted. Throws NoSuchField.
std::size_t find_column(const std::vector<ColumnData>& columns, std::string_view name);

}  // namespace quor
