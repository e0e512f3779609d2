// The words of a filter, before any field or literal is looked at: OR lists of AND lists of clauses.
//
//   filter  = [ andList { "OR" andList } ]
//   andList = item { "AND" item }
//   item    = clause | "(" filter ")"     (a group with an OR in it may be joined only by OR)
//   clause  = name op value | name "LIKE" text
//   name    = letters, digits, "_"  |  "[" any but "]" "]"
//   value   = number | 'text' ('' is an apostrophe) | #yyyy.M.d# | #yyyy-M-d# | Null
//
// Keywords in any letter case; blanks are free. The decimal sign is always the full stop.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quor {

enum class FilterOperator : std::uint8_t { kEqual, kNotEqual, kLess, kLessEqual, kGreater, kGreaterEqual, kLike };
enum class LiteralKind : std::uint8_t { kNumber, kText, kDate, kNullWord };

struct ClauseSyntax {
  std::string_view field;
  FilterOperator op = FilterOperator::kEqual;
  LiteralKind kind = LiteralKind::kNullWord;
  std::string_view literal;  // as written, without the signs around it

  // A quoted text with its doubled apostrophes made single.
  std::string text() const;
};

// Lends from the filter text.
struct FilterSyntax {
  std::vector<ClauseSyntax> clauses;
  std::vector<std::size_t> list_ends;  // clauses[0, ends[0]) are the first AND list, and so on
};

// Throws BadFilter. `text` is not empty.
FilterSyntax parse_filter(std::string_view text);

[[noreturn]] void throw_bad_filter(std::string_view filter, std::string_view reason);

}  // namespace quor
