#include "platform/data/filter.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "platform/data/case_folding.h"
#include "platform/data/error.h"
#include "platform/data/filter_syntax.h"
#include "platform/data/number_text.h"

namespace quor {
namespace {

using Test = CompiledFilter::Test;
using Clause = CompiledFilter::Clause;

std::optional<double> number_of_spelling(std::string_view spelling) {
  double number = 0.0;
  const auto [end, fault] = std::from_chars(spelling.data(), spelling.data() + spelling.size(), number);
  if (fault != std::errc() || end != spelling.data() + spelling.size()) return std::nullopt;
  return number;
}

// The system's number text, or the same with a full stop for the decimal sign.
std::optional<double> number_of_quoted(std::string text) try {
  if (const auto number = try_parse_number(text)) return number;
  if (text.find(kSystem.decimal_sign) != std::string::npos) return std::nullopt;
  std::replace(text.begin(), text.end(), '.', kSystem.decimal_sign);
  return try_parse_number(text);
} catch (const Error&) {
  return std::nullopt;  // too large
}

// yyyy.M.d or yyyy-M-d: the short date form without its other separator, without blanks and time of day.
std::optional<Date> date_between_signs(std::string_view text) {
  const bool plain =
      std::all_of(text.begin(), text.end(), [](char c) { return (c >= '0' && c <= '9') || c == '.' || c == '-'; });
  return plain ? try_parse_date(text) : std::nullopt;
}

std::optional<double> number_literal(const ClauseSyntax& clause, FieldType type) {
  const bool is_date = type == FieldType::kDate;
  switch (clause.kind) {
    case LiteralKind::kNumber:
      return is_date ? std::nullopt : number_of_spelling(clause.literal);
    case LiteralKind::kText: {
      if (!is_date) return number_of_quoted(clause.text());
      const auto date = try_parse_date(clause.text());
      return date ? std::optional(date->serial()) : std::nullopt;
    }
    case LiteralKind::kDate: {
      const auto date = is_date ? date_between_signs(clause.literal) : std::nullopt;
      return date ? std::optional(date->serial()) : std::nullopt;
    }
    case LiteralKind::kNullWord:
      break;
  }
  return std::nullopt;
}

Test comparison(FilterOperator op) {
  switch (op) {
    case FilterOperator::kNotEqual:
      return Test::kNotEqual;
    case FilterOperator::kLess:
      return Test::kLess;
    case FilterOperator::kLessEqual:
      return Test::kLessEqual;
    case FilterOperator::kGreater:
      return Test::kGreater;
    case FilterOperator::kGreaterEqual:
      return Test::kGreaterEqual;
    case FilterOperator::kEqual:
    case FilterOperator::kLike:
      break;
  }
  return Test::kEqual;
}

// "abc*" begins, "*abc*" contains, "abc" equals; a star anywhere else says nothing. False then.
bool set_pattern(Clause& clause) {
  const auto is_star = [](char c) { return c == '*' || c == '%'; };
  std::string& text = clause.text;
  if (!text.empty() && is_star(text.back())) {
    clause.test = Test::kStartsWith;
    text.pop_back();
    if (!text.empty() && is_star(text.front())) {
      clause.test = Test::kContains;
      text.erase(0, 1);
    }
  }
  return std::none_of(text.begin(), text.end(), is_star);
}

// Sets what the field is compared with. False when the literal does not fit the field.
bool set_literal(Clause& clause, const ClauseSyntax& syntax, FieldType type) {
  if (type == FieldType::kRecordSet) return false;
  if (type != FieldType::kText) {
    const auto number = syntax.op == FilterOperator::kLike ? std::nullopt : number_literal(syntax, type);
    clause.number = number.value_or(0.0);
    return number.has_value();
  }
  if (syntax.kind == LiteralKind::kDate) return false;
  clause.text = syntax.kind == LiteralKind::kText ? syntax.text() : std::string(syntax.literal);
  return syntax.op != FilterOperator::kLike || set_pattern(clause);
}

Clause compile_clause(const ClauseSyntax& syntax, const std::vector<ColumnData>& columns, std::string_view filter) {
  Clause clause;
  clause.field = find_column(columns, syntax.field);
  if (syntax.kind == LiteralKind::kNullWord) {
    clause.test = syntax.op == FilterOperator::kEqual ? Test::kIsNull : Test::kIsNotNull;
    return clause;
  }
  clause.test = comparison(syntax.op);
  const FieldInfo& info = columns[clause.field].info;
  if (!set_literal(clause, syntax, info.type)) {
    throw_bad_filter(filter, "laukas „" + info.name + "“ nelyginamas su „" + std::string(syntax.literal) + "“");
  }
  return clause;
}

bool in_order(Test test, int order) {
  switch (test) {
    case Test::kEqual:
      return order == 0;
    case Test::kNotEqual:
      return order != 0;
    case Test::kLess:
      return order < 0;
    case Test::kLessEqual:
      return order <= 0;
    case Test::kGreater:
      return order > 0;
    case Test::kGreaterEqual:
      return order >= 0;
    default:
      return false;
  }
}

bool clause_holds(const Clause& clause, const ColumnData& column, std::size_t row) {
  const bool null = column.nulls[row];
  if (clause.test == Test::kIsNull) return null;
  if (null) return false;
  if (clause.test == Test::kIsNotNull) return true;
  if (column.info.type != FieldType::kText) {
    const double number = column.number(row);
    return in_order(clause.test, static_cast<int>(number > clause.number) - static_cast<int>(number < clause.number));
  }
  const std::string_view text = column.text(row);
  if (clause.test == Test::kStartsWith) return starts_with_folded(text, clause.text);
  if (clause.test == Test::kContains) return contains_folded(text, clause.text);
  return in_order(clause.test, compare_folded(text, clause.text));
}

}  // namespace

CompiledFilter::CompiledFilter(std::string_view text, const std::vector<ColumnData>& columns) {
  FilterSyntax syntax = parse_filter(text);
  clauses_.reserve(syntax.clauses.size());
  for (const ClauseSyntax& clause : syntax.clauses) clauses_.push_back(compile_clause(clause, columns, text));
  list_ends_ = std::move(syntax.list_ends);
}

bool CompiledFilter::passes(const std::vector<ColumnData>& columns, std::size_t row) const {
  std::size_t at = 0;
  for (const std::size_t end : list_ends_) {
    while (at < end && clause_holds(clauses_[at], columns[clauses_[at].field], row)) ++at;
    if (at == end) return true;
    at = end;
  }
  return false;
}

std::size_t find_column(const std::vector<ColumnData>& columns, std::string_view name) {
  // As written first: that is the common case, and comparing bytes is quick.
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].info.name == name) return i;
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (compare_folded(columns[i].info.name, name) == 0) return i;
  }
  throw Error(ErrorKind::kNoSuchField, "Nėra lauko „" + std::string(name) + "“.");
}

}  // namespace quor
