// The salary of a month, and the part of it that was worked.
#include "host/company/working_days.h"
#include "host/insight/restatement.h"
#include "host/insight/rules/rule.h"
#include "host/insight/rules/rule_bench.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr char kTariff[] = "Bazinė alga", kFactor[] = "Koeficientas", kShare[] = "Etato dalis";

std::string steps_text(double tariff, double factor, const MonthSalarySteps& steps) {
  return general_text(tariff) + " x " + general_text(factor) + " = " + general_text(steps.product) + "; sveikais " +
         general_text(steps.whole) + ", paskutinis skaitmuo " + std::to_string(steps.last_digit) + ", todėl " +
         general_text(steps.five_fold);
}

RuleOutcome answer_month_salary(RuleBench& bench, const RuleFacts& facts) {
  const double tariff = facts.number(kTariff), factor = facts.number(kFactor), share = facts.number(kShare);
  const double sum = bench.ask("GetMonthSalaryValue", {tariff, factor, share}).Value.to_double();
  const MonthSalarySteps steps = restate_month_salary(tariff, factor, share);
  return {.results = {steps.product, steps.whole, std::int32_t{steps.last_digit}, steps.five_fold, sum},
          .explanation = steps_text(tariff, factor, steps) + "; " + general_text(steps.five_fold) + " x " +
                         general_text(share) + ", iki cento " + general_text(steps.sum),
          .fault = restated_fault("Mėnesio alga", steps.sum, sum)};
}

// ---- the part of a month

constexpr char kOfMonth[] = "Mėnuo", kNorm[] = "Mėnesio norma", kFrom[] = "Pareigos nuo", kTo[] = "Pareigos iki",
               kWorked[] = "Dirbta valandų";

std::optional<Date> day_of(const Variant& fact) {
  return fact.is_null() ? std::nullopt : std::optional(fact.to_date());
}

RulePerson person_of(const RuleFacts& facts) {
  RulePerson person{.month = Month::of(facts[kOfMonth].to_date()),
                    .norm_hours = facts.number(kNorm),
                    .tariff = facts.number(kTariff),
                    .factor = facts.number(kFactor),
                    .share = facts.number(kShare),
                    .from = day_of(facts[kFrom]),
                    .to = day_of(facts[kTo])};
  if (!facts[kWorked].is_null()) person.worked_hours = facts.number(kWorked);
  return person;
}

// The first of them that is one.
std::string first_fault(std::initializer_list<std::string> faults) {
  for (const std::string& each : faults) {
    if (!each.empty()) return each;
  }
  return "";
}

std::string part_text(const RulePerson& person, const WorkedPartSteps& steps) {
  const double hours = person.worked_hours.value_or(person.norm_hours);
  return "darbo dienų " + std::to_string(steps.days) + " iš " + std::to_string(steps.all_days) + "; " +
         general_text(hours) + " x " + std::to_string(steps.days) + " / " + std::to_string(steps.all_days) + " = " +
         general_text(steps.hours) + " val.; " + general_text(steps.hours) + " / " + general_text(person.norm_hours) +
         " = " + general_text(steps.part);
}

RuleOutcome answer_part_month(RuleBench& bench, const RuleFacts& facts) {
  const RulePerson person = person_of(facts);
  const PersonMonth month = bench.month_of(person);
  const PositionPay& pay = month.positions.front();
  const Date first = person.month.first_day(), last = person.month.last_day();
  std::vector<HoursOfTime> worked;
  if (person.worked_hours) worked.push_back({*person.worked_hours, true});
  const WorkedPartSteps part =
      restate_worked_part(std::max(first, person.from.value_or(first)), std::min(last, person.to.value_or(last)),
                          person.norm_hours, worked, person.share);
  const MonthSalarySteps whole = restate_month_salary(person.tariff, person.factor, person.share);
  const double restated = restate_month_salary(person.tariff, person.factor, part.multiplier).sum;
  const double hours = month.document.time_rows.empty() ? 0 : month.document.time_rows.front().hours;
  const double paid = month.document.sum_of(SumType::kBasePay);
  return {.results = {std::int32_t{part.days}, hours, part.part, pay.month_salary, paid},
          .explanation = part_text(person, part) + "; " + steps_text(person.tariff, person.factor, whole) +
                         "; pareiginė alga " + general_text(whole.five_fold) + " x " + general_text(person.share) +
                         " = " + general_text(whole.sum) + "; už dirbtą laiką " + general_text(whole.five_fold) +
                         " x " + general_text(part.multiplier) + " = " + general_text(restated),
          .fault = first_fault({restated_fault("Valandos", part.hours, hours),
                                restated_fault("Pareiginė alga", whole.sum, pay.month_salary),
                                restated_fault("Už dirbtą laiką", restated, paid)})};
}

std::optional<RuleFactFault> check_part_month(const RuleFacts& facts) {
  if (facts.number(kNorm) <= 0) return RuleFactFault{kNorm, "norma turi būti didesnė už 0"};
  const auto from = day_of(facts[kFrom]), to = day_of(facts[kTo]);
  if (from && to && *to < *from) return RuleFactFault{kTo, "pabaiga ankstesnė už pradžią"};
  const Month month = Month::of(facts[kOfMonth].to_date());
  if (from && *from > month.last_day()) return RuleFactFault{kFrom, "pareigos prasideda po mėnesio"};
  if (to && *to < month.first_day()) return RuleFactFault{kTo, "pareigos baigiasi prieš mėnesį"};
  return std::nullopt;
}

}  // namespace

Rule month_salary_rule() {
  using enum RuleValue;
  return {.caption = "Mėnesio alga",
          .facts = {{kTariff, kNumber}, {kFactor, kNumber}, {kShare, kNumber}},
          .results = {{"Sandauga", kNumber},
                      {"Sveikais", kNumber},
                      {"Paskutinis skaitmuo", kWhole},
                      {"Penkių kartotinis", kNumber},
                      {"Mėnesio alga", kNumber}},
          .answer = answer_month_salary};
}

Rule part_month_rule() {
  using enum RuleValue;
  return {.caption = "Mėnesio dalis",
          .facts = {{kOfMonth, kMonth},
                    {kNorm, kNumber},
                    {kFrom, kDay, true},
                    {kTo, kDay, true},
                    {kShare, kNumber},
                    {kTariff, kNumber},
                    {kFactor, kNumber},
                    {kWorked, kNumber, true}},
          .results = {{"Darbo dienos", kWhole},
                      {"Valandos", kNumber},
                      {"Dirbta dalis", kNumber},
                      {"Pareiginė alga", kNumber},
                      {"Už dirbtą laiką", kNumber}},
          .answer = answer_part_month,
          .check = check_part_month};
}

}  // namespace quor
