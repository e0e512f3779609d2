#include "host/payroll/month_state.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "host/payroll/closed_month_guard.h"
#include "host/payroll/last_calculation.h"
#include "host/payroll/month_comparison.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

namespace {

// What was found by calculating, and when.
struct Remembered {
  MonthStamp stamp;
  MonthState state;
};
using States = std::map<Date, Remembered>;  // by the month's first day

// The faults of the last calculation.
std::vector<StateFault> stored_faults(Database& database, const Month& month) {
  const auto rows = database.read(
      "SELECT e.id, e.name, f.reason, (SELECT COUNT(*) FROM documents d WHERE d.month = f.month AND"
      " d.employee_id = f.employee_id) FROM month_faults f JOIN employees e ON e.id = f.employee_id"
      " WHERE f.month = :p0 ORDER BY e.sort_key, e.id",
      {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"Reason", FieldType::kText}, {"Pay", FieldType::kInt32}},
      {month.first_day()});
  std::vector<StateFault> faults;
  for (; !rows->Eof(); rows->MoveNext()) {
    faults.push_back(
        {{rows->int32({0}), std::string(rows->text({1})), std::string(rows->text({2}))}, rows->int32({3}) > 0});
  }
  return faults;
}

// Records know the minute of their change: those of the closing's own minute count once anything was written after it.
std::int32_t recorded_since(Database& database, const Month& month, const std::string& at) {
  const auto count = database.read(
      "SELECT COUNT(*) FROM documents d WHERE d.month = :p0 AND (EXISTS (SELECT 1 FROM experience x"
      " WHERE x.employee_id = d.employee_id AND x.changed_at >= :p2) OR EXISTS (SELECT 1 FROM extra_charges c"
      " WHERE c.employee_id = d.employee_id AND c.changed_at >= :p2"
      " AND (((c.date_from IS NULL OR c.date_from <= :p1) AND (c.date_to IS NULL OR c.date_to >= :p0))"
      " OR EXISTS (SELECT 1 FROM salary_rows r WHERE r.document_id = d.id AND r.personal_extra_charge_id = c.id))))"
      " AND NOT EXISTS (SELECT 1 FROM closed_months m JOIN counters k ON k.name = 'pay_inputs' AND"
      " k.value = m.pay_inputs WHERE m.month = :p0)",
      {{"Count", FieldType::kInt32}}, {month.first_day(), month.last_day(), at});
  return count->int32({0});
}

// False when it was cancelled.
bool compare(Application& application, MonthState& state, const MonthOptions& watching) {
  const MonthComparison found =
      compare_month(application, state.month, {.progress = watching.progress, .cancelled = watching.cancelled});
  if (found.cancelled) return false;
  std::set<std::int32_t> missing;
  for (const NamedPerson& person : found.missing) missing.insert(person.employee);
  state.changed = static_cast<std::int32_t>(found.changed.size() + found.ended.size());
  for (const PersonFault& fault : found.faults) state.faults.push_back({fault, missing.erase(fault.employee) == 0});
  const bool as_a_whole = last_calculation(application.company().database(), state.month) != LastCalculation::kNone;
  (as_a_whole ? state.changed : state.uncalculated) += static_cast<std::int32_t>(missing.size());
  return true;
}

// "1 žmogaus", "3 žmonių", "21 žmogaus".
std::string of_people(std::int32_t count) {
  return std::to_string(count) + (count % 10 == 1 && count % 100 != 11 ? " žmogaus" : " žmonių");
}

std::string faults_text(const std::vector<StateFault>& faults) {
  std::vector<std::string> texts;
  for (const auto& [fault, earlier_pay] : faults) {
    texts.push_back(fault.person + " (" + fault.reason + (earlier_pay ? "; rodomas ankstesnis skaičiavimas" : "") +
                    ")");
  }
  return "klaidos: " + first_of(texts);
}

}  // namespace

MonthState month_state(Application& application, const Month& month, const MonthOptions& watching) {
  application.guard().require_view(kSalaryExtensionType);
  Company& company = application.company();
  Database& database = company.database();
  company.refresh();
  MonthState state{.month = month, .calculated = was_calculated(database, month)};
  const std::vector<MonthClosing> closings = closings_of(database, month);
  if (is_closed(database, month)) {
    // Closed by an import, it has no history.
    state.closed = closings.empty() ? MonthClosing{.closed = true, .by = {}, .at = {}, .reason = {}} : closings.back();
    state.faults = stored_faults(database, month);
    if (!closings.empty()) state.recorded_since = recorded_since(database, month, state.closed->at);
    return state;
  }
  if (!state.calculated) return state;
  if (last_calculation(database, month) == LastCalculation::kOfToday) {
    state.faults = stored_faults(database, month);
    return state;
  }
  States& states = company.memory<States>();
  const MonthStamp now = month_stamp(database, month);
  const auto known = states.find(month.first_day());
  if (known != states.end() && known->second.stamp == now) return known->second.state;
  try {
    if (!compare(application, state, watching)) {
      state.unknown = "tikrinimas nutrauktas";
      return state;
    }
  } catch (const Error& error) {
    state.unknown = error.what();
  }
  states.insert_or_assign(month.first_day(), Remembered{now, state});
  return state;
}

std::string month_state_line(const MonthState& state) {
  std::vector<std::string> parts;
  if (state.closed) {
    const std::string by = state.closed->by.empty() ? "" : " (" + state.closed->by + ", " + state.closed->at + ")";
    parts.push_back("uždarytas" + by);
    if (state.recorded_since > 0) {
      parts.push_back("po uždarymo iš naujo įrašytas stažas ar priedai (" + of_people(state.recorded_since) +
                      "): jie rodomi dabartiniai");
    }
  }
  if (!state.calculated) parts.emplace_back("neapskaičiuotas");
  if (state.uncalculated > 0) parts.push_back("neapskaičiuota žmonių: " + std::to_string(state.uncalculated));
  if (state.changed > 0) parts.push_back("po skaičiavimo pakeista duomenų (" + of_people(state.changed) + ")");
  if (!state.unknown.empty()) parts.push_back("nežinoma, ar duomenys pakeisti: " + state.unknown);
  if (!state.faults.empty()) parts.push_back(faults_text(state.faults));
  std::string line;
  for (const std::string& part : parts) line += (line.empty() ? state.month.text() + ": " : "; ") + part;
  return line;
}

}  // namespace quor
