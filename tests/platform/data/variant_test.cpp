#include "platform/data/variant.h"

#include <gtest/gtest.h>
#include <limits>
#include <type_traits>

#include "platform/data/recordset.h"
#include "tests/support/outcome.h"

namespace quor {
namespace {

using std::int16_t;
using std::int32_t;

// What would change its meaning silently on the way in does not compile.
static_assert(!std::is_constructible_v<Variant, int*>);
static_assert(!std::is_constructible_v<Variant, std::nullptr_t>);
static_assert(!std::is_constructible_v<Variant, std::int64_t>);
static_assert(!std::is_constructible_v<Variant, std::size_t>);
static_assert(!std::is_constructible_v<Variant, char>);

struct Tariff : Object {};
struct Factor : Object {};

struct ConversionCase {
  const char* name;
  Variant value;
  // All by outcome(); a date shows as its serial.
  const char *int16, *int32, *number, *date, *text, *boolean;
};

void expect_conversions(const ConversionCase& c) {
  SCOPED_TRACE(c.name);
  EXPECT_EQ(outcome([&] { return c.value.to_int16(); }), c.int16);
  EXPECT_EQ(outcome([&] { return c.value.to_int32(); }), c.int32);
  EXPECT_EQ(outcome([&] { return c.value.to_double(); }), c.number);
  EXPECT_EQ(outcome([&] { return c.value.to_date(); }), c.date);
  EXPECT_EQ(outcome([&] { return c.value.to_text(); }), c.text);
  EXPECT_EQ(outcome([&] { return c.value.to_bool(); }), c.boolean);
}

TEST(Variant, ConvertsEveryKind) {
  const char* const null = "InvalidNull";
  const char* const type = "TypeMismatch";
  const char* const over = "Overflow";
  const ConversionCase cases[] = {
      {"empty", {}, "0", "0", "0", "0", "", "false"},
      {"null", kNull, null, null, null, null, null, null},
      {"true", true, "-1", "-1", "-1", "-1", "True", "true"},
      {"false", false, "0", "0", "0", "0", "False", "false"},
      {"int16", int16_t{-32768}, "-32768", "-32768", "-32768", "-32768", "-32768", "true"},
      {"int16 zero", int16_t{0}, "0", "0", "0", "0", "0", "false"},
      {"int32", int32_t{39478}, over, "39478", "39478", "39478", "39478", "true"},
      {"int32 past the dates", int32_t{-2147483647 - 1}, over, "-2147483648", "-2147483648", over, "-2147483648",
       "true"},
      {"double", 12.5, "12", "12", "12.5", "12.5", "12,5", "true"},
      {"double past all", 1E20, over, over, "1e+20", over, "1E+20", "true"},
      {"date", Date::from_serial(2.5), "2", "2", "2.5", "2.5", "1900.01.01", "true"},
      {"zero date", Date(), "0", "0", "0", "0", "1899.12.30", "false"},
      {"date past int16", Date::from_serial(39478), over, "39478", "39478", "39478", "2008.01.31", "true"},
      {"numeric text", " 2,5 ", "2", "2", "2.5", type, " 2,5 ", "true"},
      {"text of zero", "0,0", "0", "0", "0", type, "0,0", "false"},
      {"date text", "2008.3.01", type, type, type, "39508", "2008.3.01", type},
      {"text true", "tRUE", type, type, type, type, "tRUE", "true"},
      {"text false", "FALSE", type, type, type, type, "FALSE", "false"},
      {"text nearly true", "True ", type, type, type, type, "True ", type},
      {"empty text", "", type, type, type, type, "", type},
      {"too large text", "1E400", over, over, over, type, "1E400", over},
      {"record set", std::shared_ptr<Recordset>(), type, type, type, type, type, type},
      {"object", std::make_shared<Tariff>(), type, type, type, type, type, type},
      {"array", Variant::Array{int32_t{1}}, type, type, type, type, type, type},
  };
  for (const ConversionCase& c : cases) expect_conversions(c);
}

TEST(Variant, RoundsHalfToEvenBeforeTheRangeCheck) {
  const struct {
    Variant value;
    const char *int16, *int32;
  } cases[] = {
      {0.5, "0", "0"},
      {1.5, "2", "2"},
      {2.5, "2", "2"},
      {-0.5, "0", "0"},
      {-2.5, "-2", "-2"},
      {0.49999999999999994, "0", "0"},
      {32767.4, "32767", "32767"},
      {32767.5, "Overflow", "32768"},
      {-32768.5, "-32768", "-32768"},
      {-32768.6, "Overflow", "-32769"},
      {2147483647.4, "Overflow", "2147483647"},
      {2147483647.5, "Overflow", "Overflow"},
      {-2147483648.5, "Overflow", "-2147483648"},
      {-2147483648.6, "Overflow", "Overflow"},
      {"40000", "Overflow", "40000"},
      {"12,5", "12", "12"},
      {"17a", "TypeMismatch", "TypeMismatch"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.value.to_text());
    EXPECT_EQ(outcome([&] { return c.value.to_int16(); }), c.int16);
    EXPECT_EQ(outcome([&] { return c.value.to_int32(); }), c.int32);
  }
}

TEST(Variant, ADoubleIsFinite) {
  EXPECT_EQ(outcome([] { return Variant(std::numeric_limits<double>::infinity()).to_double(); }), "Overflow");
  EXPECT_EQ(outcome([] { return Variant(std::numeric_limits<double>::quiet_NaN()).to_double(); }), "Overflow");
}

TEST(Variant, NullTolerantReadersForgiveNullAndEmptyOnly) {
  const struct {
    const char* name;
    Variant value;
    const char *int32, *int16, *number, *date, *text;
  } cases[] = {
      {"null", kNull, "0", "0", "0", "0", ""},
      {"empty", {}, "0", "0", "0", "0", ""},
      {"double", 40000.5, "40000", "Overflow", "40000.5", "40000.5", "40000,5"},
      {"date", Date::from_serial(39478), "39478", "Overflow", "39478", "39478", "2008.01.31"},
      {"empty text", "", "TypeMismatch", "TypeMismatch", "TypeMismatch", "TypeMismatch", ""},
      {"null record set", std::shared_ptr<Recordset>(), "TypeMismatch", "TypeMismatch", "TypeMismatch", "TypeMismatch",
       "TypeMismatch"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(outcome([&] { return null_to_int32(c.value); }), c.int32);
    EXPECT_EQ(outcome([&] { return null_to_int16(c.value); }), c.int16);
    EXPECT_EQ(outcome([&] { return null_to_double(c.value); }), c.number);
    EXPECT_EQ(outcome([&] { return null_to_date(c.value); }), c.date);
    EXPECT_EQ(outcome([&] { return null_to_text(c.value); }), c.text);
  }
}

TEST(Variant, NamesItsKindAndKnowsWhatIsNumeric) {
  const struct {
    const char* kind;
    Variant value;
    bool numeric;
  } cases[] = {
      {"Empty", {}, true},
      {"Null", kNull, false},
      {"Bool", false, true},
      {"Int16", int16_t{1}, true},
      {"Int32", int32_t{1}, true},
      {"Double", 1.0, true},
      {"Date", Date(), false},
      {"Text", "2,5", true},
      {"Text", std::string("2.5"), false},
      {"Text", std::string_view("1E400"), false},
      {"RecordSet", std::shared_ptr<Recordset>(), false},
      {"Object", std::shared_ptr<Object>(), false},
      {"Array", Variant::Array(), false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.kind);
    EXPECT_EQ(kind_name(c.value.kind()), c.kind);
    EXPECT_EQ(is_numeric(c.value), c.numeric);
    EXPECT_EQ(c.value.is_null(), std::string_view(c.kind) == "Null");
    EXPECT_EQ(c.value.is_empty(), std::string_view(c.kind) == "Empty");
  }
}

TEST(Variant, ReferencesAreHandedOutAsTheyCame) {
  const auto tariff = std::make_shared<Tariff>();
  const Variant object = tariff;
  EXPECT_EQ(to_object<Tariff>(object), tariff);
  EXPECT_EQ(to_object<Object>(object), tariff);
  EXPECT_EQ(outcome([&] { return to_object<Factor>(object) != nullptr; }), "TypeMismatch");
  EXPECT_EQ(to_object<Factor>(Variant(std::shared_ptr<Tariff>())), nullptr);
  EXPECT_EQ(outcome([] { return to_object<Tariff>(kNull) != nullptr; }), "TypeMismatch");

  EXPECT_EQ(Variant(std::shared_ptr<Recordset>()).record_set(), nullptr);
  EXPECT_EQ(outcome([&] { return object.record_set() != nullptr; }), "TypeMismatch");
  EXPECT_EQ(outcome([] { return Variant("x").array().size(); }), "TypeMismatch");
  const Variant array = Variant::Array{int32_t{7}, "x", Variant::Array{kNull}};
  EXPECT_EQ(array.array().at(0).to_int32(), 7);
  EXPECT_TRUE(array.array().at(2).array().at(0).is_null());
}

TEST(Variant, ErrorsNameTheValueAtFault) {
  EXPECT_EQ(error_text([] { (void)Variant(40000.5).to_int16(); }), "Skaičius 40000,5 netelpa tarp -32768 ir 32767.");
}

}  // namespace
}  // namespace quor
