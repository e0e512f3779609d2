// A value of any kind that the host and the plug-in exchange, with the system's conversions between kinds.
//
// Null ("value unknown") is not Empty ("never set"), not 0 and not "". It converts to nothing: code that may meet a
// null reads through the null-tolerant readers below.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/data/date.h"

namespace quor {

class Recordset;

// Whatever travels by reference inside a Variant: data objects, object UIs, objects with members by name.
class Object {
 public:
  Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  virtual ~Object();
};

struct Null {};

class Variant {
 public:
  enum class Kind { kEmpty, kNull, kBool, kInt16, kInt32, kDouble, kDate, kText, kRecordSet, kObject, kArray };
  using Array = std::vector<Variant>;

  Variant() = default;  // Empty
  Variant(Null);
  Variant(bool value);
  Variant(std::int16_t value);
  Variant(std::int32_t value);
  Variant(double value);  // throws Overflow when not finite
  Variant(Date value);
  Variant(std::string value);
  Variant(std::string_view value);
  Variant(const char* value);
  Variant(std::shared_ptr<Recordset> value);
  template <typename T>
  requires(!std::is_same_v<T, Recordset> && std::is_base_of_v<Object, T>) Variant(std::shared_ptr<T> value)
      : Variant(std::shared_ptr<Object>(std::move(value)), ObjectTag{}) {}
  Variant(Array value);
  // A pointer or a number of another width would silently become a bool or lose digits: say which kind is meant.
  template <typename T>
  Variant(T) = delete;

  Kind kind() const;
  bool is_null() const { return kind() == Kind::kNull; }
  bool is_empty() const { return kind() == Kind::kEmpty; }

  // Conversions: InvalidNull for Null, TypeMismatch for what has no such form, Overflow for what does not fit.
  // Numbers round half to even on their way to whole numbers.
  std::int16_t to_int16() const;
  std::int32_t to_int32() const;
  double to_double() const;
  Date to_date() const;
  std::string to_text() const;
  bool to_bool() const;

  // References, never converted: TypeMismatch for another kind; the reference may be null.
  const std::shared_ptr<Recordset>& record_set() const;
  const std::shared_ptr<Object>& object() const;
  const Array& array() const;

 private:
  struct ObjectTag {};
  Variant(std::shared_ptr<Object> value, ObjectTag);

  std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, double, Date, std::string,
               std::shared_ptr<Recordset>, std::shared_ptr<Object>, Array>
      value_;
};

inline constexpr Null kNull{};

// "Double", "RecordSet" and so on, for error texts.
std::string_view kind_name(Variant::Kind kind);

// True for Empty, Bool, whole numbers, Double and numeric text.
bool is_numeric(const Variant& value);

// The null-tolerant readers: Null and Empty read as 0, 0, 0.0, the zero date, ""; anything else converts.
std::int32_t null_to_int32(const Variant& value);
std::int16_t null_to_int16(const Variant& value);
double null_to_double(const Variant& value);
Date null_to_date(const Variant& value);
std::string null_to_text(const Variant& value);

// The object behind `value` as a T. TypeMismatch when it is another kind of object, or no object at all.
template <typename T>
std::shared_ptr<T> to_object(const Variant& value);
[[noreturn]] void throw_wrong_object(const Variant& value);

template <typename T>
std::shared_ptr<T> to_object(const Variant& value) {
  const auto& object = value.object();
  auto typed = std::dynamic_pointer_cast<T>(object);
  if (object && !typed) throw_wrong_object(value);
  return typed;
}

}  // namespace quor
