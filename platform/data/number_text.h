// Numbers as text and text as numbers. One place, no locale: the settings below are the system's.
//
// Two roundings stand side by side on purpose and differ on halves: `fixed_text` rounds the fifteen-digit decimal text
// half away from zero (what a person sees), `round_even` rounds the binary product half to even (what is computed).
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quor {

struct SystemSettings {
  char decimal_sign;
  char digit_group;
};
inline constexpr SystemSettings kSystem{',', ' '};

// The shortest general form: at most 15 significant digits, plain from 1E-15 to 1E15, else "1,5E+15".
// The form that the system calls "as text" and "plain number text". Throws Overflow when x is not finite.
std::string general_text(double x);

// Exactly `decimals` digits after the decimal sign (0..15), half away from zero on the fifteen-digit decimal text,
// no grouping; a result of zero carries no minus. Throws Overflow when x is not finite.
std::string fixed_text(double x, int decimals);

// x rounded half to even to `decimals` (0..15): nearbyint(x * 10^n) / 10^n with the product rounded once.
// Throws Overflow when the product is not finite. Here as in fixed_text, other `decimals` throw IndexOutOfRange.
double round_even(double x, int decimals);

// x + 0.00001, then round_even: how money rounds where a half must go up.
double round_half_up(double x, int decimals);

// The largest whole number not above x: -0.1 gives -1.
double int_part(double x);

// Whole text as a number: blanks, sign on either side, digit groups, decimal comma, exponent. The full stop is not
// a decimal sign. No value when the text is not numeric; Overflow when it is numeric but too large; too small is 0.
std::optional<double> try_parse_number(std::string_view text);
// The same; throws TypeMismatch when the text is not numeric.
double parse_number(std::string_view text);
// True when parse_number would succeed (too large is not numeric).
bool is_numeric(std::string_view text);
// Beside is_numeric(const Variant&) a text would convert to either.
inline bool is_numeric(const std::string& text) { return is_numeric(std::string_view(text)); }
inline bool is_numeric(const char* text) { return is_numeric(std::string_view(text)); }

// The number that the text begins with, after blanks, tabs and line feeds are removed; the decimal sign here is the
// full stop only, and a digit stands before it; 0 when there is none. Throws Overflow.
double leading_number(std::string_view text);

}  // namespace quor
