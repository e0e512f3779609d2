// What is paid beside the salary: a supplement, and what the limits say of all of them.
#include <cmath>

#include "frame/contract/over_limit.h"
#include "host/insight/restatement.h"
#include "host/insight/rules/rule.h"
#include "host/insight/rules/rule_bench.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/column.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr char kBase[] = "Pagrindas", kPercent[] = "Procentas", kSum[] = "Fiksuota suma";

// Somebody whose base pay is the base: a salary of the next multiple of five, and the share of a post that makes it.
RulePerson paid_base(double base) {
  constexpr double kHours = 160;
  const double salary = 5 * std::ceil(base / 5);
  return {
      .month = Month::parse("2008.01"), .norm_hours = kHours, .tariff = salary, .factor = 1, .share = base / salary};
}

RuleOutcome answer_supplement(RuleBench& bench, const RuleFacts& facts) {
  const double base = facts.number(kBase);
  RulePerson person = paid_base(base);
  person.charge_percentage = facts.number(kPercent);
  person.charge_sum = facts.number(kSum);
  const PersonMonth month = bench.month_of(person);
  const double amount = month.document.sum_of(SumType::kSupplement);
  std::string fault = restated_fault("Pagrindas", base, month.document.sum_of(SumType::kBasePay));
  if (!facts[kSum].is_null()) {
    if (fault.empty()) fault = restated_fault("Priedas", person.charge_sum, amount);
    return {{kNull, amount}, "fiksuota suma " + general_text(person.charge_sum), fault};
  }
  const PercentageSteps steps = restate_percentage(base, person.charge_percentage);
  if (fault.empty()) fault = restated_fault("Priedas", steps.sum, amount);
  return {{steps.product, amount},
          general_text(base) + " x " + general_text(person.charge_percentage) +
              " / 100 = " + general_text(steps.product) + "; iki cento " + general_text(steps.sum),
          fault};
}

std::optional<RuleFactFault> check_supplement(const RuleFacts& facts) {
  const double base = facts.number(kBase);
  if (base <= 0 || base != round_even(base, 2))
    return RuleFactFault{kBase, "rašykite didesnę už 0 sumą, ne smulkesnę kaip centas"};
  if (facts[kPercent].is_null() == facts[kSum].is_null()) {
    return RuleFactFault{kPercent, "rašykite procentą arba fiksuotą sumą, vieną iš dviejų"};
  }
  return std::nullopt;
}

// ---- limits

constexpr char kSupplements[] = "Priedai", kSurcharges[] = "Priemokos", kSupplementLimit[] = "Priedų riba",
               kSurchargeLimit[] = "Priemokų riba", kTotalLimit[] = "Bendra riba";
constexpr std::int32_t kBasicCode = 1, kSurchargeCode = 5;

std::shared_ptr<Recordset> record_set_of(const std::vector<FieldInfo>& fields,
                                         const std::vector<std::vector<Variant>>& rows) {
  std::vector<ColumnData> columns(fields.begin(), fields.end());
  for (const auto& row : rows) {
    for (std::size_t at = 0; at < row.size(); ++at) columns[at].append(row[at]);
  }
  return Recordset::from_columns(std::move(columns));
}

MethodResult checked_rows(RuleBench& bench, const RuleFacts& facts) {
  const auto settings = record_set_of(
      {{"ExtraChargePercentage", FieldType::kDouble},
       {"SurChargePercentage", FieldType::kDouble},
       {"TotalChargePercentage", FieldType::kDouble},
       {"PersonalTimeCodeIDList", FieldType::kText}},
      {{facts[kSupplementLimit], facts[kSurchargeLimit], facts[kTotalLimit], std::to_string(kSurchargeCode)}});
  const auto times = record_set_of(
      {{"SalaryExtraOID", FieldType::kText}, {"SalaryTimeCodeID", FieldType::kInt32}, {"GUID", FieldType::kText}},
      {{RuleBench::kDocument, kBasicCode, "T1"}, {RuleBench::kDocument, kSurchargeCode, "T2"}});
  const auto sums = record_set_of(
      {{"TimeRowGUID", FieldType::kText}, {"SumA", FieldType::kDouble}, {"PersonalExtraChargeID", FieldType::kInt32}},
      {{"T1", facts.number(kBase), 0}, {kNull, facts.number(kSupplements), 1}, {"T2", facts.number(kSurcharges), 0}});
  return bench.ask("CheckSalaryRows", {times, sums, Date::from_ymd(2008, 1, 31), kBasicCode},
                   {{"GetOfficeEmployeeSettings", settings}}, true);
}

struct LimitedPart {
  const char* what;
  double sum, limit;
};

// The share that is compared with the limit; none where nothing is.
std::optional<double> share_of(const LimitedPart& part, double base) {
  if (part.limit <= 0 || is_no_base(base)) return std::nullopt;
  return percentage_of(part.sum, base);
}

RuleOutcome answer_limits(RuleBench& bench, const RuleFacts& facts) {
  const MethodResult checked = checked_rows(bench, facts);
  const double base = facts.number(kBase);
  const auto limited = [&](const char* what, const char* sum, const char* limit) {
    return LimitedPart{what, facts.number(sum), facts.number(limit)};
  };
  const LimitedPart supplements = limited("priedai", kSupplements, kSupplementLimit),
                    surcharges = limited("priemokos", kSurcharges, kSurchargeLimit);
  // What has no limit of its own does not count in the sum.
  const auto counted = [](const LimitedPart& part) { return part.limit > 0 ? part.sum : 0; };
  const LimitedPart total{"kartu", counted(supplements) + counted(surcharges), facts.number(kTotalLimit)};
  RuleOutcome outcome;
  bool over = false;
  for (const LimitedPart& part : {supplements, surcharges, total}) {
    const auto share = share_of(part, base);
    outcome.results.push_back(share ? Variant(*share) : Variant(kNull));
    outcome.explanation += (outcome.explanation.empty() ? "" : "; ") + std::string(part.what) + " ";
    if (!share) {
      outcome.explanation += part.limit <= 0 ? "be ribos" : "netikrinama, pagrindo nėra";
      continue;
    }
    const bool exceeds = percentage_exceeds(*share, part.limit);
    over = over || exceeds;
    outcome.explanation += general_text(part.sum) + " iš " + general_text(base) + " = " + general_text(*share) +
                           " %, riba " + general_text(part.limit) + " %: " + (exceeds ? "viršija" : "neviršija");
  }
  outcome.results.emplace_back(checked.Code);
  outcome.results.push_back(checked.Message.empty() ? Variant(kNull) : Variant(checked.Message));
  outcome.fault = restated_fault("Kodas", over ? kOverLimit : 0, checked.Code);
  return outcome;
}

}  // namespace

Rule supplement_rule() {
  using enum RuleValue;
  return {.caption = "Priedas",
          .facts = {{kBase, kNumber}, {kPercent, kNumber, true}, {kSum, kNumber, true}},
          .results = {{"Nesuapvalintas priedas", kNumber}, {"Priedas", kNumber}},
          .answer = answer_supplement,
          .check = check_supplement};
}

Rule limits_rule() {
  using enum RuleValue;
  return {.caption = "Priedų ir priemokų ribos",
          .facts = {{kBase, kNumber},
                    {kSupplements, kNumber, true},
                    {kSurcharges, kNumber, true},
                    {kSupplementLimit, kNumber, true},
                    {kSurchargeLimit, kNumber, true},
                    {kTotalLimit, kNumber, true}},
          .results = {{"Priedų dalis", kNumber},
                      {"Priemokų dalis", kNumber},
                      {"Bendra dalis", kNumber},
                      {"Kodas", kWhole},
                      {"Pranešimas", kText}},
          .answer = answer_limits};
}

}  // namespace quor
