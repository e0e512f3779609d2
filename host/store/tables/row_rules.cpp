#include "host/store/tables/row_rules.h"

#include "frame/contract/object_key.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

using Values = std::vector<Variant>;
using Broken = std::optional<RowFault>;

Broken ends_before_it_begins(const Values& values) {
  const Variant &from = values[0], &to = values[1];
  if (from.is_null() || to.is_null() || from.to_date() <= to.to_date()) return std::nullopt;
  return RowFault{"date_to", "pabaiga " + to.to_text() + " ankstesnė už pradžią " + from.to_text()};
}

Broken scale_step_runs_backwards(const Values& values) {
  const Variant &from = values[0], &to = values[1];
  if (from.is_null() || to.is_null() || from.to_double() <= to.to_double()) return std::nullopt;
  return RowFault{"year_to", "stažo pabaiga " + to.to_text() + " mažesnė už pradžią " + from.to_text()};
}

// A 0 says nothing where the charge is given another way; a percentage of 0 alone is one.
Broken not_given_in_one_way(const Values& values) {
  const bool sum = null_to_double(values[0]) > 0;
  const bool tied = names_type(null_to_text(values[2]));
  const bool percentage = null_to_double(values[1]) != 0 || (!values[1].is_null() && !sum && !tied);
  if (sum + percentage + tied == 1) return std::nullopt;
  const std::string one_of = "priedui nurodoma arba suma, arba procentas, arba sąsaja su tarnybos stažu";
  if (!sum && !percentage) return RowFault{"sum_a", "nenurodyta nė vienu būdu: " + one_of};
  const std::string_view second = tied ? "salary_extra_oid" : "percentage";
  return RowFault{second, "nurodyta daugiau negu vienu būdu: " + one_of};
}

Broken more_hours_than_a_day_has(const Values& values) {
  const bool of_a_day = values[0].kind() == Variant::Kind::kDate;
  if (!of_a_day || values[1].is_null() || kHoursOfDay.holds(values[1].to_double())) return std::nullopt;
  return RowFault{"hours", general_text(values[1].to_double()) + " – leidžiama " + kHoursOfDay.text() + " per dieną"};
}

}  // namespace

std::span<const RowRule> row_rules() {
  static const std::vector<RowRule> rules = {
      {"settings_rows", {"year_from", "year_to"}, scale_step_runs_backwards},
      {"extra_charges", {"date_from", "date_to"}, ends_before_it_begins},
      {"extra_charges", {"sum_a", "percentage", "salary_extra_oid"}, not_given_in_one_way},
      {"positions", {"date_from", "date_to"}, ends_before_it_begins},
      {"worked_time", {"date", "hours"}, more_hours_than_a_day_has},
  };
  return rules;
}

}  // namespace quor
