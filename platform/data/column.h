// One typed column of a record set: a vector of values and a bitmap of nulls. A loader fills whole columns and hands
// them over with Recordset::from_columns; nothing is allocated per cell.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/data/field_info.h"
#include "platform/data/variant.h"

namespace quor {

// Texts of a column one behind the other in one arena. An assigned text that is longer than the old one is appended;
// the old one stays as waste until half of the arena is waste.
class TextColumn {
 public:
  std::size_t size() const { return spans_.size(); }
  void reserve(std::size_t rows, std::size_t bytes) { spans_.reserve(rows), arena_.reserve(bytes); }
  void push_back(std::string_view text);
  void assign(std::size_t row, std::string_view text);
  void clear();
  // Good until the next push_back or assign.
  std::string_view operator[](std::size_t row) const {
    return std::string_view(arena_).substr(spans_[row].begin, spans_[row].length);
  }

 private:
  struct Span {
    std::uint64_t begin;
    std::uint64_t length;
  };
  void drop_waste();

  std::string arena_;
  std::vector<Span> spans_;
  std::size_t waste_ = 0;
};

// One bit a row; rows past the end are not null.
class NullBitmap {
 public:
  bool operator[](std::size_t row) const {
    return row / 64 < words_.size() && (words_[row / 64] >> (row % 64) & 1U) != 0;
  }
  void set(std::size_t row, bool null);
  void clear() { words_.clear(); }

 private:
  std::vector<std::uint64_t> words_;
};

struct ColumnData {
  // By field type: kInt16, kInt32, kDouble and kDate (serials), kBool (0 or 1), kText, kRecordSet.
  using Values = std::variant<std::vector<std::int16_t>, std::vector<std::int32_t>, std::vector<double>,
                              std::vector<std::uint8_t>, TextColumn, std::vector<std::shared_ptr<Recordset>>>;

  explicit ColumnData(FieldInfo field);  // no rows
  std::size_t size() const;

  Variant value(std::size_t row) const;
  // Numbers, dates (serial) and bools (true is -1) as a Double; not for texts and record sets, nor for a null.
  double number(std::size_t row) const;
  std::string_view text(std::size_t row) const { return std::get<TextColumn>(values)[row]; }

  // Converts `value` to the field's type. Throws the conversion's error, or Overflow for a text that is too long, with
  // the field's name in the text; the cell is then as before.
  void assign(std::size_t row, const Variant& value);

  void set_null(std::size_t row);  // lets go of a record set
  void append_null();
  void append(const Variant& value);  // as assign, in a new cell
  // Cells of a column of the same type, as they are.
  void append_cell(const ColumnData& from, std::size_t from_row);
  void copy_cell(std::size_t row, const ColumnData& from, std::size_t from_row);
  void clear();  // no rows; the memory is kept

  FieldInfo info;
  Values values;
  NullBitmap nulls;
};

// The type of `values` is the one that the field's type asks for.
bool values_fit_type(const ColumnData& column);

}  // namespace quor
