#include "platform/data/column.h"

#include <type_traits>
#include <utility>

#include "platform/data/error.h"
#include "platform/data/utf8.h"

namespace quor {
namespace {

constexpr std::size_t kWasteFrom = 4096;  // below, dropping waste is not worth a copy

ColumnData::Values no_values(FieldType type) {
  switch (type) {
    case FieldType::kInt16:
      return std::vector<std::int16_t>();
    case FieldType::kInt32:
      return std::vector<std::int32_t>();
    case FieldType::kDouble:
    case FieldType::kDate:
      return std::vector<double>();
    case FieldType::kBool:
      return std::vector<std::uint8_t>();
    case FieldType::kText:
      return TextColumn();
    case FieldType::kRecordSet:
      break;
  }
  return std::vector<std::shared_ptr<Recordset>>();
}

std::string checked_text(const FieldInfo& info, const Variant& value) {
  std::string text = value.to_text();
  if (info.size != 0 && character_count(text) > info.size) {
    throw Error(ErrorKind::kOverflow, "tekstas „" + text + "“ ilgesnis nei " + std::to_string(info.size) + " simb.");
  }
  return text;
}

template <typename T>
void put(std::vector<T>& values, std::size_t row, T value) {
  values[row] = std::move(value);
}
void put(TextColumn& values, std::size_t row, std::string_view text) { values.assign(row, text); }

void assign_converted(ColumnData& column, std::size_t row, const Variant& value) {
  switch (column.info.type) {
    case FieldType::kInt16:
      return put(std::get<std::vector<std::int16_t>>(column.values), row, value.to_int16());
    case FieldType::kInt32:
      return put(std::get<std::vector<std::int32_t>>(column.values), row, value.to_int32());
    case FieldType::kDouble:
      return put(std::get<std::vector<double>>(column.values), row, value.to_double());
    case FieldType::kDate:
      return put(std::get<std::vector<double>>(column.values), row, value.to_date().serial());
    case FieldType::kBool:
      return put(std::get<std::vector<std::uint8_t>>(column.values), row, std::uint8_t{value.to_bool()});
    case FieldType::kText:
      return put(std::get<TextColumn>(column.values), row, checked_text(column.info, value));
    case FieldType::kRecordSet:
      return put(std::get<std::vector<std::shared_ptr<Recordset>>>(column.values), row, value.record_set());
  }
}

}  // namespace

void TextColumn::push_back(std::string_view text) {
  const Span span{arena_.size(), text.size()};
  arena_.append(text);
  spans_.push_back(span);
}

void TextColumn::assign(std::size_t row, std::string_view text) {
  Span& span = spans_[row];
  if (text.size() <= span.length) {
    std::char_traits<char>::move(arena_.data() + span.begin, text.data(), text.size());
    waste_ += span.length - text.size();
    span.length = text.size();
    return;
  }
  const std::size_t begin = arena_.size();
  arena_.append(text);
  waste_ += span.length;
  span = {begin, arena_.size() - begin};
  if (waste_ > kWasteFrom && waste_ > arena_.size() / 2) drop_waste();
}

void TextColumn::drop_waste() {
  std::string packed;
  packed.reserve(arena_.size() - waste_);
  for (Span& span : spans_) {
    const std::size_t begin = packed.size();
    packed.append(arena_, span.begin, span.length);
    span.begin = begin;
  }
  arena_ = std::move(packed);
  waste_ = 0;
}

void TextColumn::clear() {
  arena_.clear();
  spans_.clear();
  waste_ = 0;
}

void NullBitmap::set(std::size_t row, bool null) {
  const std::size_t word = row / 64;
  if (word >= words_.size()) {
    if (!null) return;
    words_.resize(word + 1);
  }
  const std::uint64_t bit = std::uint64_t{1} << (row % 64);
  words_[word] = null ? words_[word] | bit : words_[word] & ~bit;
}

ColumnData::ColumnData(FieldInfo field) : info(std::move(field)), values(no_values(info.type)) {}

std::size_t ColumnData::size() const {
  return std::visit([](const auto& typed) { return typed.size(); }, values);
}

Variant ColumnData::value(std::size_t row) const {
  if (nulls[row]) return kNull;
  switch (info.type) {
    case FieldType::kInt16:
      return std::get<std::vector<std::int16_t>>(values)[row];
    case FieldType::kInt32:
      return std::get<std::vector<std::int32_t>>(values)[row];
    case FieldType::kDouble:
      return std::get<std::vector<double>>(values)[row];
    case FieldType::kDate:
      return Date::from_serial(std::get<std::vector<double>>(values)[row]);
    case FieldType::kBool:
      return std::get<std::vector<std::uint8_t>>(values)[row] != 0;
    case FieldType::kText:
      return text(row);
    case FieldType::kRecordSet:
      break;
  }
  return std::get<std::vector<std::shared_ptr<Recordset>>>(values)[row];
}

double ColumnData::number(std::size_t row) const {
  switch (info.type) {
    case FieldType::kInt16:
      return std::get<std::vector<std::int16_t>>(values)[row];
    case FieldType::kInt32:
      return std::get<std::vector<std::int32_t>>(values)[row];
    case FieldType::kDouble:
    case FieldType::kDate:
      return std::get<std::vector<double>>(values)[row];
    case FieldType::kBool:
      return std::get<std::vector<std::uint8_t>>(values)[row] != 0 ? -1.0 : 0.0;
    case FieldType::kText:
    case FieldType::kRecordSet:
      break;
  }
  throw Error(ErrorKind::kTypeMismatch, "Laukas „" + info.name + "“ nėra skaičius.");
}

void ColumnData::assign(std::size_t row, const Variant& value) {
  if (value.is_null()) {
    set_null(row);
    return;
  }
  try {
    assign_converted(*this, row, value);
  } catch (const Error& error) {
    throw Error(error.kind(), "Laukas „" + info.name + "“: " + error.what());
  }
  nulls.set(row, false);
}

void ColumnData::set_null(std::size_t row) {
  auto* references = std::get_if<std::vector<std::shared_ptr<Recordset>>>(&values);
  if (references != nullptr) (*references)[row].reset();
  nulls.set(row, true);
}

void ColumnData::append(const Variant& value) {
  append_null();
  assign(size() - 1, value);
}

void ColumnData::append_null() {
  std::visit(
      [](auto& typed) {
        if constexpr (std::is_same_v<std::decay_t<decltype(typed)>, TextColumn>) {
          typed.push_back({});
        } else {
          typed.emplace_back();
        }
      },
      values);
  nulls.set(size() - 1, true);
}

void ColumnData::append_cell(const ColumnData& from, std::size_t from_row) {
  const std::size_t row = size();
  std::visit([&](auto& typed) { typed.push_back(std::get<std::decay_t<decltype(typed)>>(from.values)[from_row]); },
             values);
  nulls.set(row, from.nulls[from_row]);
}

void ColumnData::copy_cell(std::size_t row, const ColumnData& from, std::size_t from_row) {
  std::visit([&](auto& typed) { put(typed, row, std::get<std::decay_t<decltype(typed)>>(from.values)[from_row]); },
             values);
  nulls.set(row, from.nulls[from_row]);
}

void ColumnData::clear() {
  std::visit([](auto& typed) { typed.clear(); }, values);
  nulls.clear();
}

bool values_fit_type(const ColumnData& column) { return column.values.index() == no_values(column.info.type).index(); }

}  // namespace quor
