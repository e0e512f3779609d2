// `quor check`: tables of cases, tried. What is red is told with what was got and how it comes about.
#include <algorithm>
#include <iostream>

#include "host/application/plugin_files.h"
#include "host/console/insight_commands.h"
#include "host/console/json_values.h"
#include "host/console/session.h"
#include "host/console/written_reports.h"
#include "host/insight/rules/rule_tables.h"
#include "platform/data/column.h"
#include "platform/data/error.h"

namespace quor {

namespace {

constexpr char kGreen[] = "\x1b[32m", kRed[] = "\x1b[31m", kPlain[] = "\x1b[0m";

std::string marked(bool passed, const std::string& text, bool colours) {
  const std::string line = (passed ? "✓ " : "✗ ") + text;
  return colours ? (passed ? kGreen : kRed) + line + kPlain : line;
}

std::string or_nothing(const std::string& text) { return text.empty() ? "nieko" : text; }

void print_red(const RuleRow& row, bool colours, std::ostream& out) {
  constexpr char kIndent[] = "      ";
  out << "  " << marked(false, case_text(row) + ": " + row.facts, colours) << '\n';
  for (const RuleResult& each : row.results) {
    if (each.passed) continue;
    out << kIndent << each.column << ": turi būti " << or_nothing(each.expected) << ", gauta " << or_nothing(each.got)
        << '\n';
  }
  if (!row.fault.empty()) out << kIndent << row.fault << '\n';
  if (!row.explanation.empty()) out << kIndent << row.explanation << '\n';
}

void print(const std::vector<RuleTable>& tables, bool colours, std::ostream& out) {
  std::size_t cases = 0, red = 0, unread = 0;
  for (const RuleTable& table : tables) {
    out << marked(table.passed(), table.file + ": " + summary_text(table), colours) << '\n';
    for (const RuleRow& row : table.rows) {
      if (!row.passed()) print_red(row, colours, out);
    }
    cases += table.rows.size();
    red += table.rows.size() - table.passed_count();
    unread += table.fault.empty() ? 0U : 1U;
  }
  out << "Lentelių " << tables.size() << ", atvejų " << cases << ", raudonų " << red;
  if (unread > 0) out << ", neišbandytų lentelių " << unread;
  out << '\n';
}

Json to_json(const RuleRow& row) {
  Json json = {{"line", row.line},        {"name", row.name},   {"facts", row.facts},
               {"passed", row.passed()},  {"fault", row.fault}, {"explanation", row.explanation},
               {"results", Json::array()}};
  for (const RuleResult& each : row.results) {
    json["results"].push_back(
        {{"column", each.column}, {"expected", each.expected}, {"got", each.got}, {"passed", each.passed}});
  }
  return json;
}

Json to_json(const std::vector<RuleTable>& tables, bool passed) {
  Json json = {{"passed", passed}, {"tables", Json::array()}};
  for (const RuleTable& table : tables) {
    Json of_table = {{"file", table.file},
                     {"rule", table.rule},
                     {"passed", table.passed()},
                     {"fault", table.fault},
                     {"rows", Json::array()}};
    for (const RuleRow& row : table.rows) of_table["rows"].push_back(to_json(row));
    json["tables"].push_back(std::move(of_table));
  }
  return json;
}

// A row a result; one of a table that was not tried.
std::shared_ptr<Recordset> result_rows(const std::vector<RuleTable>& tables) {
  const FieldInfo fields[] = {{"Failas", FieldType::kText},  {"Eilutė", FieldType::kInt32},
                              {"Pastaba", FieldType::kText}, {"Stulpelis", FieldType::kText},
                              {"Laukta", FieldType::kText},  {"Gauta", FieldType::kText},
                              {"Tinka", FieldType::kText},   {"Paaiškinimas", FieldType::kText}};
  std::vector<ColumnData> columns(std::begin(fields), std::end(fields));
  const auto append = [&](const std::vector<Variant>& cells) {
    for (std::size_t at = 0; at < cells.size(); ++at) columns[at].append(cells[at]);
  };
  for (const RuleTable& table : tables) {
    if (!table.fault.empty()) append({table.file, kNull, kNull, kNull, kNull, kNull, "ne", table.fault});
    for (const RuleRow& row : table.rows) {
      const std::string why = row.fault.empty() ? row.explanation : row.fault;
      for (const RuleResult& each : row.results) {
        append({table.file, static_cast<std::int32_t>(row.line), row.name, each.column, each.expected, each.got,
                each.passed && row.fault.empty() ? "taip" : "ne", why});
      }
    }
  }
  return Recordset::from_columns(std::move(columns));
}

}  // namespace

std::vector<std::string> files_read(const CheckCommand& command) {
  try {
    return rule_files(command.place);
  } catch (const Error&) {  // the command tells it
    return {};
  }
}

ExitStatus run(const CheckCommand& command, const CommonOptions& options, std::ostream& out) {
  const std::vector<std::string> files = rule_files(command.place);
  RuleBench bench([&](Application& application) {
    load_plugins(application, options.plugins, [](const std::string& text) { std::cerr << "quor: " << text << '\n'; });
  });
  std::vector<RuleTable> tables;
  for (const std::string& file : files) tables.push_back(check_rule_table(bench, file));
  const bool passed = std::all_of(tables.begin(), tables.end(), [](const RuleTable& each) { return each.passed(); });
  if (options.format == "table") {
    print(tables, to_terminal(options), out);
  } else if (options.format == "json") {
    out << to_json(tables, passed).dump() << '\n';
  } else {
    const auto rows = result_rows(tables);
    write_rows(*rows, all_fields(*rows), options.format, out);
  }
  return passed ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace quor
