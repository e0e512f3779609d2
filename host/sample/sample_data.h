// The words and numbers that a sample company is made of. All invented; dates are serial day numbers or year, month,
// day.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace quor::sample_data {

inline constexpr std::string_view kCompanyName = "Pavyzdžių savivaldybės administracija";

// A surname is a stem with one of the endings, which follow the bearer: a man's, a married woman's, an unmarried one's.
struct SurnameEnding {
  std::string_view man, wife, maiden;
};
std::span<const std::string_view> surname_stems();
std::span<const SurnameEnding> surname_endings();
std::span<const std::string_view> men();
std::span<const std::string_view> women();

// A department's name is "<area> skyrius"; a division's "<area> skyriaus <task> poskyris".
std::span<const std::string_view> department_areas();
std::span<const std::string_view> division_tasks();

struct Day {
  int year, month, day;
};

struct ConstantType {
  std::string_view code, name;
};
struct ConstantValue {
  std::size_t type;  // index in constant_types
  Day from;
  double value;
};
inline constexpr std::size_t kMonthTariff = 0;
inline constexpr std::size_t kHourTariff = 1;
inline constexpr std::size_t kOfficerTariff = 2;
std::span<const ConstantType> constant_types();
std::span<const ConstantValue> constant_values();

struct Indication {
  std::string_view indication;
  std::int32_t code_id;
  std::string_view code, name;
};
std::span<const Indication> indications();

struct SalaryCode {
  std::string_view code, name;
};
inline constexpr std::size_t kServiceCode = 1;
inline constexpr std::size_t kRankCode = 2;
inline constexpr std::size_t kTaskCode = 3;
inline constexpr std::size_t kFixedCode = 4;
std::span<const SalaryCode> salary_codes();

// A category's factor from 2005.01.01, from 2006.07.01 (0 = unchanged) and from 2007.07.01.
struct Category {
  std::string_view name;
  double factor_2005, factor_2006, factor_2007;
};
std::span<const Category> categories();

struct Settings {
  Day from;
  std::string_view time_codes;
  double extra_limit, surcharge_limit, total_limit;
};
std::span<const Settings> settings();

}  // namespace quor::sample_data
