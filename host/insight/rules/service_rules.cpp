// Length of service, and what the scale gives for it.
#include <algorithm>

#include "host/insight/restatement.h"
#include "host/insight/rules/rule.h"
#include "host/insight/rules/rule_bench.h"
#include "host/store/tables/value_ranges.h"
#include "host/text/plain_values.h"
#include "platform/data/column.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr std::int32_t kPerson = 1;

constexpr char kYears[] = "Stažo metai", kMonths[] = "Stažo mėnesiai", kReached[] = "Stažo data", kAt[] = "Data";

std::shared_ptr<Recordset> one_service(const RuleFacts& facts) {
  std::vector<ColumnData> columns;
  const auto add = [&](const char* field, FieldType type, const Variant& value) {
    columns.emplace_back(FieldInfo{field, type});
    columns.back().append(value);
  };
  add("UserID", FieldType::kInt32, kPerson);
  add("ExperienceYears", FieldType::kInt32, facts[kYears]);
  add("ExperienceMonthes", FieldType::kInt32, facts[kMonths]);
  add("DateExperience", FieldType::kDate, facts[kReached]);
  return Recordset::from_columns(std::move(columns));
}

RuleOutcome answer_service(RuleBench& bench, const RuleFacts& facts) {
  const Date reached = null_to_date(facts[kReached]), at = facts[kAt].to_date();
  const auto years =
      bench.ask("GetYearsOfService", {kPerson, at}, {{"GetOfficeEmployeeExperience", one_service(facts)}})
          .Value.to_int16();
  const ServiceSteps steps = restate_service(facts.whole(kYears), facts.whole(kMonths), reached, at);
  const auto number = [](std::int32_t value) { return std::to_string(value); };
  return {.results = {steps.months_since, steps.months, std::int32_t{years}},
          .explanation = "nuo " + date_text(reached) + " iki " + date_text(at) + " mėnesių ribų " +
                         number(steps.months_since) + "; su " + number(facts.whole(kMonths)) + " stažo mėn. – " +
                         number(steps.months) + " mėn., tai " + number(steps.years - facts.whole(kYears)) + " m. ir " +
                         number(steps.rest) + " mėn.; su " + number(facts.whole(kYears)) + " stažo m. – " +
                         number(steps.years) + " m.",
          .fault = restated_fault("Sveiki metai", steps.years, years)};
}

// ---- the scale

constexpr char kScale[] = "Skalė", kFullYears[] = "Metai";

std::shared_ptr<Recordset> settings_of(const std::vector<ScaleBand>& bands) {
  std::vector<ColumnData> columns;
  for (const FieldInfo& field : {FieldInfo{"GUID", FieldType::kText}, FieldInfo{"RowGUID", FieldType::kText},
                                 FieldInfo{"YearFrom", FieldType::kInt16}, FieldInfo{"YearTo", FieldType::kInt16},
                                 FieldInfo{"Percentage", FieldType::kDouble}}) {
    columns.emplace_back(field);
  }
  for (std::size_t i = 0; i < bands.size(); ++i) {
    const std::vector<Variant> row = {"S1", "R" + std::to_string(i), bands[i].from, bands[i].to, bands[i].percentage};
    for (std::size_t at = 0; at < row.size(); ++at) columns[at].append(row[at]);
  }
  return Recordset::from_columns(std::move(columns));
}

RuleOutcome answer_scale(RuleBench& bench, const RuleFacts& facts) {
  const std::vector<ScaleBand> bands = *parse_scale(facts[kScale].to_text());
  const std::int32_t years = facts.whole(kFullYears);
  const double answered =
      bench.ask("GetPercentageByExperience", {Variant(years).to_int16(), settings_of(bands)}).Value.to_double();
  const auto band = std::find_if(bands.begin(), bands.end(),
                                 [&](const ScaleBand& each) { return each.from <= years && years < each.to; });
  const bool found = band != bands.end();
  const std::string text = found ? "pirma pakopa, kurioje telpa " + std::to_string(years) + " m., yra nuo " +
                                       std::to_string(band->from) + " (imtinai) iki " + std::to_string(band->to) +
                                       " (neimtinai): " + general_text(band->percentage) + " %"
                                 : "nė vienoje pakopoje " + std::to_string(years) + " m. nėra: 0 %";
  return {.results = {answered},
          .explanation = text,
          .fault = restated_fault("Stažo procentas", found ? band->percentage : 0, answered)};
}

}  // namespace

Rule service_rule() {
  using enum RuleValue;
  return {.caption = "Tarnybos stažas",
          .facts = {{kYears, kWhole, true}, {kMonths, kWhole, true}, {kReached, kDay, true}, {kAt, kDay}},
          .results = {{"Mėnesiai nuo datos", kWhole}, {"Visi mėnesiai", kWhole}, {"Sveiki metai", kWhole}},
          .answer = answer_service};
}

Rule scale_rule() {
  return {.caption = "Stažo skalė",
          .facts = {{kScale, RuleValue::kScale}, {kFullYears, RuleValue::kWhole}},
          .results = {{"Stažo procentas", RuleValue::kNumber}},
          .answer = answer_scale};
}

// "0-5:3 5-10:5,5": years from, years to, per cent.
std::optional<std::vector<ScaleBand>> parse_scale(std::string_view text) {
  std::vector<ScaleBand> bands;
  while (true) {
    const auto start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos) break;
    text.remove_prefix(start);
    const std::string_view band = text.substr(0, text.find_first_of(" \t"));
    text.remove_prefix(band.size());
    const auto dash = band.find('-'), colon = band.find(':');
    if (dash == std::string_view::npos || colon == std::string_view::npos || colon < dash) return std::nullopt;
    const auto from = parse_plain_whole(band.substr(0, dash)),
               to = parse_plain_whole(band.substr(dash + 1, colon - dash - 1));
    const auto percentage = parse_plain_number(band.substr(colon + 1));
    if (!from || !to || !percentage || !kScaleYear.holds(*from) || !kScaleYear.holds(*to)) return std::nullopt;
    bands.push_back({static_cast<std::int16_t>(*from), static_cast<std::int16_t>(*to), *percentage});
  }
  if (bands.empty()) return std::nullopt;
  return bands;
}

}  // namespace quor
