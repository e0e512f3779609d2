#include "platform/data/number_text.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "tests/support/outcome.h"

namespace quor {
namespace {

struct FormCase {
  double x;
  const char *general, *fixed_two;
  double round_two;
};
const FormCase kForms[] = {
    {0.0, "0", "0,00", 0.0},
    {-0.0, "0", "0,00", 0.0},
    {12.5, "12,5", "12,50", 12.5},
    {0.1 + 0.2, "0,3", "0,30", 0.3},
    {1.0 / 3, "0,333333333333333", "0,33", 0.33},
    {2.0 / 3, "0,666666666666667", "0,67", 0.67},
    {4.35 * 100, "435", "435,00", 435.0},
    {0.005, "0,005", "0,01", 0.0},
    {0.015, "0,015", "0,02", 0.02},
    {0.025, "0,025", "0,03", 0.02},
    {1.005, "1,005", "1,01", 1.0},
    {-1.005, "-1,005", "-1,01", -1.0},
    {2.675, "2,675", "2,68", 2.68},
    {61.725, "61,725", "61,73", 61.72},
    {61.725 + 0.00001, "61,72501", "61,73", 61.73},
    {99.995, "99,995", "100,00", 100.0},
    {-0.004, "-0,004", "0,00", 0.0},
    {1E-15, "0,000000000000001", "0,00", 0.0},
    {1E-16, "1E-16", "0,00", 0.0},
    {1.0 / 30000, "3,33333333333333E-05", "0,00", 0.0},
    {123456789012345.0, "123456789012345", "123456789012345,00", 123456789012345.0},
    {1E15, "1E+15", "1000000000000000,00", 1E15},
    {1234567890123456.0, "1,23456789012346E+15", "1234567890123460,00", 1234567890123456.0},
    {999999999999999.0, "999999999999999", "999999999999999,00", 999999999999999.0},
    {999999999999999.875, "1E+15", "1000000000000000,00", 999999999999999.875},
    {-1E15, "-1E+15", "-1000000000000000,00", -1E15},
    {1.5E-14, "0,000000000000015", "0,00", 0.0},
    {1.5E-15, "1,5E-15", "0,00", 0.0},
    {1.2345678E-10, "1,2345678E-10", "0,00", 0.0},
    {-0.000012345678901, "-0,000012345678901", "0,00", 0.0},
    {0.0000123456789012, "1,23456789012E-05", "0,00", 0.0},
    {-9.995, "-9,995", "-10,00", -9.99},
    {-0.005, "-0,005", "-0,01", 0.0},
    {0.0049, "0,0049", "0,00", 0.0},
    {0.0099, "0,0099", "0,01", 0.01},
    {1E100, "1E+100",
     "10000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000,00", 1E100},
    {1.2E-101, "1,2E-101", "0,00", 0.0},
};

TEST(NumberText, GeneralFixedAndRoundedForms) {
  for (const FormCase& c : kForms) {
    SCOPED_TRACE(c.general);
    EXPECT_EQ(general_text(c.x), c.general);
    EXPECT_EQ(fixed_text(c.x, 2), c.fixed_two);
    EXPECT_EQ(round_even(c.x, 2), c.round_two);
  }
}

TEST(NumberText, FixedAndRoundedFormsOfOtherLengths) {
  const struct {
    double x;
    int decimals;
    const char* fixed;
    double rounded;
  } cases[] = {
      {0.4, 0, "0", 0.0},
      {0.5, 0, "1", 0.0},
      {1.5, 0, "2", 2.0},
      {2.5, 0, "3", 2.0},
      {-0.5, 0, "-1", 0.0},
      {-2.5, 0, "-3", -2.0},
      {0.49999999999999994, 0, "1", 0.0},
      {0.04, 0, "0", 0.0},
      {9.5, 0, "10", 10.0},
      {0.12345, 4, "0,1235", 0.1234},
      {0.95, 1, "1,0", 1.0},
      {0.1, 15, "0,100000000000000", 0.1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.x);
    EXPECT_EQ(fixed_text(c.x, c.decimals), c.fixed);
    EXPECT_EQ(round_even(c.x, c.decimals), c.rounded);
  }
}

TEST(NumberText, TheAddendMakesAHalfGoUp) {
  const struct {
    const char* name;
    double x;
    int decimals;
    double expected;
  } cases[] = {
      {"half of an even number", 1262.5, 0, 1263.0},
      {"sum is exactly the half", 1262.49999, 0, 1262.0},
      {"less than the addend below the half", 1262.499995, 0, 1263.0},
      {"exact half", 0.125, 2, 0.13},
      {"small, below the half", 0.004995, 2, 0.01},
      {"negative half", -0.125, 2, -0.12},
      {"negative half as written only", -61.725, 2, -61.72},
      {"large", 1E9 + 0.5, 0, 1000000001.0},
      {"too large for the addend", 1E12 + 0.5, 0, 1000000000000.0},
  };
  for (const auto& c : cases) EXPECT_EQ(round_half_up(c.x, c.decimals), c.expected) << c.name;
}

TEST(NumberText, RefusesWhatItCannotRoundOrShow) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(outcome([] { return round_even(1E307, 1); }), "9.9999999999999999e+306");
  EXPECT_EQ(outcome([] { return round_even(1E308, 1); }), "Overflow");
  EXPECT_EQ(outcome([&] { return general_text(-infinity); }), "Overflow");
  EXPECT_EQ(outcome([] { return fixed_text(std::nan(""), 2); }), "Overflow");
  EXPECT_EQ(outcome([] { return fixed_text(1.0, 16); }), "IndexOutOfRange");
  EXPECT_EQ(outcome([] { return round_even(1.0, -1); }), "IndexOutOfRange");
}

TEST(NumberText, IntegerPartGoesTowardMinusInfinity) {
  EXPECT_EQ(int_part(7.9), 7.0);
  EXPECT_EQ(int_part(-0.1), -1.0);
  EXPECT_EQ(int_part(-8.4), -9.0);
  EXPECT_EQ(int_part(-8.0), -8.0);
}

struct ParseCase {
  const char* text;
  const char* number;   // parse_number, by outcome()
  const char* leading;  // leading_number, by outcome()
};
const ParseCase kNumbers[] = {{"1", "1", "1"},
                              {"2,5", "2.5", "2"},
                              {",5", "0.5", "0"},
                              {"5,", "5", "5"},
                              {"-3", "-3", "-3"},
                              {"3-", "-3", "3"},
                              {"1 000,5", "1000.5", "1000"},
                              {" 12 ", "12", "12"},
                              {"1E3", "1000", "1000"},
                              {"1e+3", "1000", "1000"},
                              {"0,0000", "0", "0"},
                              {"1E400", "Overflow", "Overflow"},
                              {"+3", "3", "3"},
                              {"\t- 3\u00A0", "-3", "-3"},
                              {"3 -", "-3", "3"},
                              {"1 2 34", "1234", "1234"},
                              {"1\u00A0000", "1000", "1"},
                              {"1\u202F000", "1000", "1"},
                              {"1D-2", "0.01", "1"},
                              {"5,d2", "500", "5"},
                              {",5E1", "5", "0"},
                              {"1,7976931348623157E308", "1.7976931348623157e+308", "1"},
                              {"1,7976931348623159E308", "Overflow", "1"},
                              {"1E308", "1e+308", "1e+308"},
                              {"-1E309", "Overflow", "Overflow"},
                              {"1E99999999999999999999", "Overflow", "Overflow"},
                              {"1E-400", "0", "0"},
                              {"1E-99999999999999999999", "0", "0"},
                              {"0,00001E400", "Overflow", "0"},
                              {"0E400", "0", "0"},
                              {"9007199254740993", "9007199254740992", "9007199254740992"},
                              {"9007199254740993,0000000000000000000001", "9007199254740994", "9007199254740992"}};
// What is no number, by what it begins with.
const std::pair<const char*, std::vector<const char*>> kNoNumbers[] = {
    {"2.5", {"2.5"}},
    {"0", {",", "-", "", " ", "abc", "+-3", "E3", "(5)", "0x10", "inf"}},
    {"1", {"1-2", "1.000,5", "1,2,3", "1\u202F", "1,0 0", "1E", "1E+", "1.E3"}},
    {"12", {"12abc"}},
    {"3", {"3- ", "\n3"}},
    {"-3", {"-3-"}},
    {"1000", {"1  000", "1\t000", "1 E3", "1E3,5"}},
    {"5", {"5 ,5", "5 €"}},
    {"25", {"2.5E1"}},
    {"2008.01", {"2008.01.31"}}};

TEST(NumberText, TextAsNumber) {
  for (const ParseCase& c : kNumbers) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(outcome([&] { return parse_number(c.text); }), c.number);
    EXPECT_EQ(is_numeric(c.text), std::string(c.number) != "Overflow");
    EXPECT_EQ(outcome([&] { return try_parse_number(c.text).value(); }), c.number);
    EXPECT_EQ(outcome([&] { return leading_number(c.text); }), c.leading);
  }
  for (const auto& [leading, texts] : kNoNumbers) {
    for (const char* text : texts) {
      SCOPED_TRACE(text);
      EXPECT_EQ(outcome([&] { return parse_number(text); }), "TypeMismatch");
      EXPECT_FALSE(is_numeric(text));
      EXPECT_EQ(try_parse_number(text), std::nullopt);
      EXPECT_EQ(outcome([&] { return leading_number(text); }), leading);
    }
  }
  EXPECT_EQ(error_text([] { parse_number("17a"); }), "„17a“ nėra skaičius.");
}

TEST(NumberText, DecimalsOfFifteenDigitsReadBackUnchanged) {
  // The steps visit every layout.
  for (int exponent = -30; exponent <= 30; ++exponent) {
    for (const char* digits : {"1", "95", "123456789012345", "999999999999999"}) {
      const double x = parse_number(std::string(digits) + "E" + std::to_string(exponent));
      EXPECT_EQ(parse_number(general_text(x)), x);
      EXPECT_EQ(parse_number(general_text(-x)), -x);
    }
  }
}

}  // namespace
}  // namespace quor
