#include "host/insight/rules/rule_tables.h"

#include <algorithm>
#include <filesystem>

#include "host/insight/rules/rule_reading.h"
#include "host/store/addresses.h"
#include "host/store/file_text.h"
#include "host/text/plain_values.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

bool is_number(const Variant& value) { return !value.is_null() && is_numeric(value); }

std::string shown(const Variant& value) { return value.is_null() ? "" : value.to_text(); }

RuleResult compared(const RuleColumn& column, const Variant& expected, const Variant& got) {
  RuleResult result{.column = column.caption, .expected = shown(expected), .got = shown(got)};
  if (column.value == RuleValue::kText || !is_number(expected) || !is_number(got)) {
    result.passed = expected.is_null() == got.is_null() && result.expected == result.got;
    return result;
  }
  const double wanted = expected.to_double(), answered = got.to_double();
  result.passed = wanted == answered;
  if (!result.passed && result.expected == result.got) {
    result.expected = plain_number(wanted, true);
    result.got = plain_number(answered, true);
  }
  return result;
}

std::string facts_text(const Rule& rule, const RuleCase& tried) {
  std::string text;
  for (std::size_t at = 0; at < rule.facts.size(); ++at) {
    if (tried.facts[at].is_null()) continue;
    text += (text.empty() ? "" : "; ") + std::string(rule.facts[at].caption) + " ";
    text += rule.facts[at].value == RuleValue::kMonth ? Month::of(tried.facts[at].to_date()).text()
                                                      : shown(tried.facts[at]);
  }
  return text;
}

// A refusal of the engine or of the calculation is the case's; a bench that does not work is everybody's.
RuleOutcome answered(RuleBench& bench, const Rule& rule, const RuleCase& tried) {
  try {
    return rule.answer(bench, RuleFacts(rule.facts, tried.facts));
  } catch (const Error& error) {
    return {.results = std::vector<Variant>(rule.results.size(), kNull),
            .explanation = {},
            .fault = std::string("Programa atsisakė: ") + error.what()};
  }
}

RuleRow tried_row(RuleBench& bench, const Rule& rule, const RuleCase& tried) {
  RuleOutcome outcome = answered(bench, rule, tried);
  RuleRow row{.line = tried.line,
              .name = tried.name,
              .facts = facts_text(rule, tried),
              .explanation = std::move(outcome.explanation),
              .fault = std::move(outcome.fault)};
  for (std::size_t at = 0; at < rule.results.size(); ++at) {
    row.results.push_back(compared(rule.results[at], tried.expected[at], outcome.results.at(at)));
  }
  return row;
}

}  // namespace

bool RuleRow::passed() const {
  return fault.empty() &&
         std::all_of(results.begin(), results.end(), [](const RuleResult& each) { return each.passed; });
}

std::size_t RuleTable::passed_count() const {
  return static_cast<std::size_t>(
      std::count_if(rows.begin(), rows.end(), [](const RuleRow& each) { return each.passed(); }));
}

std::vector<std::string> rule_files(const std::string& place) {
  namespace fs = std::filesystem;
  std::error_code failed;
  if (!fs::is_directory(place, failed)) {
    if (fs::exists(place, failed)) return {place};
    throw Error(ErrorKind::kNotFound, "Nėra nei failo, nei aplanko „" + shown_address(place) + "“.");
  }
  std::vector<std::string> files;
  fs::directory_iterator entries(place, failed);
  if (failed) throw Error(ErrorKind::kRefused, "Nepavyksta perskaityti aplanko „" + shown_address(place) + "“.");
  for (const auto& entry : entries) {
    if (entry.path().extension() == ".csv" && !entry.is_directory(failed)) files.push_back(entry.path());
  }
  if (files.empty()) {
    throw Error(ErrorKind::kNotFound, "Aplanke „" + shown_address(place) + "“ nėra nė vieno CSV failo.");
  }
  std::sort(files.begin(), files.end());
  return files;
}

RuleTable check_rule_table(RuleBench& bench, const std::string& file) {
  RuleTable table{.file = file};
  RuleCases read;
  try {
    read = read_rule_cases(text_of_file(file));
  } catch (const std::runtime_error& error) {  // also of a file that cannot be read
    table.fault = error.what();
    return table;
  }
  table.rule = read.rule->caption;
  for (const RuleCase& each : read.cases) table.rows.push_back(tried_row(bench, *read.rule, each));
  return table;
}

std::string summary_text(const RuleTable& table) {
  if (!table.fault.empty()) return table.fault;
  return table.rule + ": " + std::to_string(table.passed_count()) + " iš " + std::to_string(table.rows.size());
}

std::string case_text(const RuleRow& row) {
  return std::to_string(row.line) + " eilutė" + (row.name.empty() ? "" : " „" + row.name + "“");
}

}  // namespace quor
