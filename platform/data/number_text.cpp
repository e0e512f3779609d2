#include "platform/data/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <system_error>

#include "platform/data/error.h"

namespace quor {
namespace {

constexpr int kMaxDecimals = 15;
constexpr int kSignificantDigits = 15;
// Every power up to 1E22 is exact in binary64, so a product with one of these is rounded once.
constexpr std::array<double, kMaxDecimals + 1> kPowersOfTen = {1E0, 1E1, 1E2,  1E3,  1E4,  1E5,  1E6,  1E7,
                                                               1E8, 1E9, 1E10, 1E11, 1E12, 1E13, 1E14, 1E15};

constexpr std::string_view kNoBreakSpace = "\u00A0";
constexpr std::string_view kNarrowNoBreakSpace = "\u202F";

[[noreturn]] void throw_too_large(std::string_view text) {
  throw Error(ErrorKind::kOverflow, "Skaičius „" + std::string(text) + "“ per didelis.");
}

[[noreturn]] void throw_too_large() { throw Error(ErrorKind::kOverflow, "Skaičiavimo rezultatas per didelis."); }

void check_decimals(int decimals) {
  if (decimals < 0 || decimals > kMaxDecimals) {
    throw Error(ErrorKind::kIndexOutOfRange, "Netinkamas ženklų po kablelio skaičius: " + std::to_string(decimals));
  }
}

// ---- number to text

// 0.DIGITS x 10^point, without trailing zeros at first; no digits and point 1 for zero, so that a "0" is laid out.
struct Decimal {
  std::array<char, kSignificantDigits> digits;
  int count = 0;
  int point = 1;
  bool negative = false;

  char digit(int index) const { return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0'; }
};

Decimal fifteen_digits(double x) {
  if (!std::isfinite(x)) throw_too_large();
  Decimal result;
  if (x == 0.0) return result;
  // "d.dddddddddddddde+dd", at most three digits in the exponent.
  std::array<char, 24> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(x), std::chars_format::scientific,
                                 kSignificantDigits - 1)
                       .ptr;
  result.digits[0] = text[0];
  std::copy_n(text.begin() + 2, kSignificantDigits - 1, result.digits.begin() + 1);
  result.count = kSignificantDigits;
  while (result.digits[static_cast<std::size_t>(result.count - 1)] == '0') --result.count;
  int exponent = 0;
  std::from_chars(text.data() + kSignificantDigits + 3, end, exponent);
  result.point = 1 + (text[kSignificantDigits + 2] == '-' ? -exponent : exponent);
  result.negative = x < 0.0;
  return result;
}

// Half away from zero, on the decimal digits.
void round_decimal(Decimal& value, int decimals) {
  const int keep = value.point + decimals;
  if (keep >= value.count) return;
  const bool up = value.digit(keep) >= '5';
  value.count = std::max(keep, 0);
  if (up) {
    while (value.count > 0 && value.digit(value.count - 1) == '9') --value.count;
    if (value.count == 0) {
      value.digits[0] = '1';
      value.count = 1;
      ++value.point;
    } else {
      ++value.digits[static_cast<std::size_t>(value.count - 1)];
    }
  } else if (value.count == 0) {
    value = Decimal{};
  }
}

std::string plain_layout(const Decimal& value, int decimals) {
  // The ones digit has index point - 1; below 1 that is left of the first digit and reads as a zero.
  const int first = std::min(0, value.point - 1);
  const int last = value.point + decimals;
  std::string text;
  text.reserve(static_cast<std::size_t>(last - first + 2));
  if (value.negative) text += '-';
  for (int i = first; i < last; ++i) {
    if (i == value.point) text += kSystem.decimal_sign;
    text += value.digit(i);
  }
  return text;
}

std::string scientific_layout(const Decimal& value) {
  std::string text;
  if (value.negative) text += '-';
  text += value.digits[0];
  if (value.count > 1) {
    text += kSystem.decimal_sign;
    text.append(value.digits.data() + 1, static_cast<std::size_t>(value.count - 1));
  }
  const int exponent = value.point - 1;
  const int size = std::abs(exponent);
  text += exponent < 0 ? "E-" : "E+";
  if (size < 10) text += '0';
  return text += std::to_string(size);
}

// ---- text to number

bool is_digit(char c) { return c >= '0' && c <= '9'; }

bool take(std::string_view& rest, std::string_view piece) {
  if (!rest.starts_with(piece)) return false;
  rest.remove_prefix(piece.size());
  return true;
}

bool take_blank(std::string_view& rest) { return take(rest, " ") || take(rest, "\t") || take(rest, kNoBreakSpace); }

bool take_group_sign(std::string_view& rest) {
  return take(rest, std::string_view(&kSystem.digit_group, 1)) || take(rest, kNoBreakSpace) ||
         take(rest, kNarrowNoBreakSpace);
}

// Moves the digits that `rest` begins with to `number`; false when there are none.
bool take_digits(std::string_view& rest, std::string& number) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), is_digit);
  const auto count = static_cast<std::size_t>(end - rest.begin());
  number.append(rest.substr(0, count));
  rest.remove_prefix(count);
  return count > 0;
}

// The sign that `rest` begins with, or '\0'.
char take_sign(std::string_view& rest) {
  if (take(rest, "-")) return '-';
  return take(rest, "+") ? '+' : '\0';
}

// `letters` [sign] digits. Takes nothing when a part is missing.
bool take_exponent(std::string_view& rest, std::string_view letters, std::string& number) {
  if (rest.empty() || letters.find(rest.front()) == std::string_view::npos) return false;
  std::string_view after = rest.substr(1);
  std::string exponent = "e";
  if (take_sign(after) == '-') exponent += '-';
  if (!take_digits(after, exponent)) return false;
  number += exponent;
  rest = after;
  return true;
}

// digits {group digits} ["," [digits]] | "," digits. A group sign that no digit follows is left for the blanks.
bool take_mantissa(std::string_view& rest, std::string& number) {
  const std::string_view sign(&kSystem.decimal_sign, 1);
  const bool whole = take_digits(rest, number);
  while (whole) {
    std::string_view after = rest;
    if (!take_group_sign(after) || !take_digits(after, number)) break;
    rest = after;
  }
  if (!take(rest, sign)) return whole;
  if (!whole) number += '0';
  number += '.';
  if (take_digits(rest, number)) return true;
  number += '0';
  return whole;
}

// Is a number that no binary64 can hold too large (and not too small)? `number` is digits [. digits] [e [-] digits].
bool is_huge(std::string_view number) {
  const auto letter = std::min(number.find('e'), number.size());
  const auto mantissa = number.substr(0, letter);
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  const auto first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
  long long exponent = 0;
  if (letter < number.size()) {
    const auto text = number.substr(letter + 1);
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc{}) return text[0] != '-';
  }
  return exponent + static_cast<long long>(point) - static_cast<long long>(first) > 0;
}

struct Parsed {
  enum class Status { kNumber, kNotNumeric, kTooLarge } status;
  double value = 0.0;
};

// `number` is digits [. digits] [e [-] digits]. What is too small for a binary64 is zero.
Parsed to_binary(const std::string& number, bool negative) {
  double value = 0.0;
  const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (is_huge(number)) return {Parsed::Status::kTooLarge};
    value = 0.0;
  }
  return {Parsed::Status::kNumber, negative ? -value : value};
}

Parsed parse(std::string_view text) {
  constexpr Parsed kNotNumeric{Parsed::Status::kNotNumeric};
  std::string number;
  while (take_blank(text)) {
  }
  char sign = take_sign(text);
  while (sign != '\0' && take_blank(text)) {
  }
  if (!take_mantissa(text, number)) return kNotNumeric;
  take_exponent(text, "EeDd", number);
  while (take_blank(text)) {
  }
  // A sign behind the number ends the text: no blank may follow it.
  if (sign == '\0') sign = take_sign(text);
  if (!text.empty()) return kNotNumeric;
  return to_binary(number, sign == '-');
}

}  // namespace

std::string general_text(double x) {
  const Decimal value = fifteen_digits(x);
  const int decimals = std::max(0, value.count - value.point);
  // "Below 1E15" is asked of the rounded digits: 999999999999999.9 reads as 1E+15, never with sixteen digits.
  const bool plain = value.point <= kSignificantDigits && decimals <= kMaxDecimals;
  return plain ? plain_layout(value, decimals) : scientific_layout(value);
}

std::string fixed_text(double x, int decimals) {
  check_decimals(decimals);
  Decimal value = fifteen_digits(x);
  round_decimal(value, decimals);
  return plain_layout(value, decimals);
}

double round_even(double x, int decimals) {
  check_decimals(decimals);
  const double power = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const double product = x * power;
  if (!std::isfinite(product)) throw_too_large();
  return std::nearbyint(product) / power;
}

double round_half_up(double x, int decimals) { return round_even(x + 0.00001, decimals); }

double int_part(double x) { return std::floor(x); }

std::optional<double> try_parse_number(std::string_view text) {
  const Parsed parsed = parse(text);
  if (parsed.status == Parsed::Status::kTooLarge) throw_too_large(text);
  if (parsed.status == Parsed::Status::kNotNumeric) return std::nullopt;
  return parsed.value;
}

double parse_number(std::string_view text) {
  if (const auto value = try_parse_number(text)) return *value;
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(text) + "“ nėra skaičius.");
}

bool is_numeric(std::string_view text) { return parse(text).status == Parsed::Status::kNumber; }

double leading_number(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  std::string_view rest = packed;
  std::string number;
  const bool negative = take_sign(rest) == '-';
  if (!take_digits(rest, number)) return 0.0;
  std::string fraction = ".";
  if (std::string_view after = rest; take(after, ".") && take_digits(after, fraction)) {
    number += fraction;
    rest = after;
  }
  take_exponent(rest, "Ee", number);
  const Parsed parsed = to_binary(number, negative);
  if (parsed.status == Parsed::Status::kTooLarge) throw_too_large(text);
  return parsed.value;
}

}  // namespace quor
