// Tables of cases that say what the rules of pay are to give, tried on the engine and the month's calculation: per
// case what was expected, what was got, and how it comes about.
//
// Numbers are compared as they are, to the last bit, texts letter by letter, and an empty cell says that there is no
// result. There is no tolerance. Of a company that is open, nothing is read and nothing is stored.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/insight/rules/rule_bench.h"

namespace quor {

struct RuleResult {
  std::string column;
  std::string expected, got;  // "" for none; in full digits where fifteen would not tell them apart
  bool passed = false;
};

struct RuleRow {
  std::size_t line = 0;
  std::string name = {};   // what the table calls the case
  std::string facts = {};  // "Bazinė alga 130; Koeficientas 9,7; …"
  std::vector<RuleResult> results = {};
  std::string explanation = {};  // from the facts to the results, in words
  std::string fault = {};        // why nothing was got, or what was got cannot be explained
  bool passed() const;
};

struct RuleTable {
  std::string file;
  std::string rule = {};           // which it is about; "" when the table is at fault
  std::vector<RuleRow> rows = {};  // at least one, when it is not
  std::string fault = {};          // for which nothing of it was tried: line, column and value, a line each
  std::size_t passed_count() const;
  bool passed() const { return fault.empty() && passed_count() == rows.size(); }
};

// The file itself, or every *.csv of the folder by name. Throws quor::Error when there is none.
std::vector<std::string> rule_files(const std::string& place);

// Tries every case of the file, each by itself. Throws PluginError without the engine.
RuleTable check_rule_table(RuleBench& bench, const std::string& file);

// "Mėnesio alga: 12 iš 12"; the fault of a table that was not tried.
std::string summary_text(const RuleTable& table);
// "12 eilutė „a half goes up“".
std::string case_text(const RuleRow& row);

}  // namespace quor
