#include "platform/data/variant.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/data/case_folding.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {
namespace {

using Kind = Variant::Kind;

// What is wanted is named in the nominative: „RecordSet“ nėra skaičius.
[[noreturn]] void throw_mismatch(Kind kind, const std::string& wanted) {
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(kind_name(kind)) + "“ nėra " + wanted + ".");
}

// Null and the kinds that have no scalar form.
[[noreturn]] void throw_no_scalar(Kind kind, const std::string& wanted) {
  if (kind == Kind::kNull) {
    throw Error(ErrorKind::kInvalidNull, "Reikšmė nežinoma (Null), o čia būtina: " + wanted + ".");
  }
  throw_mismatch(kind, wanted);
}

template <typename Whole>
Whole to_whole(double value) {
  const double rounded = std::nearbyint(value);
  constexpr double kMin = std::numeric_limits<Whole>::min();
  constexpr double kMax = std::numeric_limits<Whole>::max();
  if (rounded < kMin || rounded > kMax) {
    throw Error(ErrorKind::kOverflow, "Skaičius " + general_text(value) + " netelpa tarp " + general_text(kMin) +
                                          " ir " + general_text(kMax) + ".");
  }
  return static_cast<Whole>(rounded);
}

double finite(double value) {
  if (!std::isfinite(value)) throw Error(ErrorKind::kOverflow, "Skaičiavimo rezultatas per didelis.");
  return value;
}

}  // namespace

Object::~Object() = default;

Variant::Variant(Null value) : value_(value) {}
Variant::Variant(bool value) : value_(value) {}
Variant::Variant(std::int16_t value) : value_(value) {}
Variant::Variant(std::int32_t value) : value_(value) {}
Variant::Variant(double value) : value_(finite(value)) {}
Variant::Variant(Date value) : value_(value) {}
Variant::Variant(std::string value) : value_(std::move(value)) {}
Variant::Variant(std::string_view value) : value_(std::string(value)) {}
Variant::Variant(const char* value) : value_(std::string(value)) {}
Variant::Variant(std::shared_ptr<Recordset> value) : value_(std::move(value)) {}
Variant::Variant(std::shared_ptr<Object> value, ObjectTag) : value_(std::move(value)) {}
Variant::Variant(Array value) : value_(std::move(value)) {}

Variant::Kind Variant::kind() const { return static_cast<Kind>(value_.index()); }

std::int16_t Variant::to_int16() const { return to_whole<std::int16_t>(to_double()); }

std::int32_t Variant::to_int32() const { return to_whole<std::int32_t>(to_double()); }

double Variant::to_double() const {
  switch (kind()) {
    case Kind::kEmpty:
      return 0.0;
    case Kind::kBool:
      return std::get<bool>(value_) ? -1.0 : 0.0;
    case Kind::kInt16:
      return std::get<std::int16_t>(value_);
    case Kind::kInt32:
      return std::get<std::int32_t>(value_);
    case Kind::kDouble:
      return std::get<double>(value_);
    case Kind::kDate:
      return std::get<Date>(value_).serial();
    case Kind::kText:
      return parse_number(std::get<std::string>(value_));
    default:
      throw_no_scalar(kind(), "skaičius");
  }
}

Date Variant::to_date() const {
  switch (kind()) {
    case Kind::kDate:
      return std::get<Date>(value_);
    case Kind::kText:
      return parse_date(std::get<std::string>(value_));
    case Kind::kEmpty:
    case Kind::kBool:
    case Kind::kInt16:
    case Kind::kInt32:
    case Kind::kDouble:
      return Date::from_serial(to_double());
    default:
      throw_no_scalar(kind(), "data");
  }
}

std::string Variant::to_text() const {
  switch (kind()) {
    case Kind::kEmpty:
      return {};
    case Kind::kBool:
      return std::get<bool>(value_) ? "True" : "False";
    case Kind::kInt16:
    case Kind::kInt32:
      return std::to_string(to_int32());
    case Kind::kDouble:
      return general_text(std::get<double>(value_));
    case Kind::kDate:
      return date_text(std::get<Date>(value_));
    case Kind::kText:
      return std::get<std::string>(value_);
    default:
      throw_no_scalar(kind(), "tekstas");
  }
}

bool Variant::to_bool() const {
  if (const auto* text = std::get_if<std::string>(&value_)) {
    if (compare_folded(*text, "true") == 0) return true;
    if (compare_folded(*text, "false") == 0) return false;
  }
  return to_double() != 0.0;
}

const std::shared_ptr<Recordset>& Variant::record_set() const {
  if (kind() != Kind::kRecordSet) throw_mismatch(kind(), "įrašų rinkinys");
  return std::get<std::shared_ptr<Recordset>>(value_);
}

const std::shared_ptr<Object>& Variant::object() const {
  if (kind() != Kind::kObject) throw_mismatch(kind(), "objektas");
  return std::get<std::shared_ptr<Object>>(value_);
}

const Variant::Array& Variant::array() const {
  if (kind() != Kind::kArray) throw_mismatch(kind(), "masyvas");
  return std::get<Array>(value_);
}

std::string_view kind_name(Variant::Kind kind) {
  constexpr std::array<std::string_view, 11> kNames = {"Empty", "Null", "Bool",      "Int16",  "Int32", "Double",
                                                       "Date",  "Text", "RecordSet", "Object", "Array"};
  return kNames.at(static_cast<std::size_t>(kind));
}

bool is_numeric(const Variant& value) {
  switch (value.kind()) {
    case Kind::kEmpty:
    case Kind::kBool:
    case Kind::kInt16:
    case Kind::kInt32:
    case Kind::kDouble:
      return true;
    case Kind::kText:
      return is_numeric(value.to_text());
    default:
      return false;
  }
}

std::int32_t null_to_int32(const Variant& value) { return value.is_null() ? 0 : value.to_int32(); }

std::int16_t null_to_int16(const Variant& value) { return value.is_null() ? std::int16_t{0} : value.to_int16(); }

double null_to_double(const Variant& value) { return value.is_null() ? 0.0 : value.to_double(); }

Date null_to_date(const Variant& value) { return value.is_null() ? Date() : value.to_date(); }

std::string null_to_text(const Variant& value) { return value.is_null() ? std::string() : value.to_text(); }

void throw_wrong_object(const Variant& value) {
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(kind_name(value.kind())) + "“ yra kitos rūšies objektas.");
}

}  // namespace quor
