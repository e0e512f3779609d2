#include "host/editors/rule_tables_form.h"

#include <algorithm>
#include <filesystem>

namespace quor {

namespace {

constexpr std::size_t kTableColumn = 1, kRuleColumn = 2, kLineColumn = 3, kCaseColumn = 4, kFactsColumn = 5,
                      kWhyColumn = 6;

// Told in words, too: not everybody tells red from green.
std::string mark_text(bool passed) { return passed ? "✓ tinka" : "✗ netinka"; }

void mark(ListView& list, std::size_t row, bool passed) {
  for (std::size_t column = 0; column < list.columns().size(); ++column) {
    list.set_colour(row, column, passed ? CellColour::kGreen : CellColour::kRed);
  }
}

std::string why(const RuleRow& row) {
  if (row.fault.empty() || row.explanation.empty()) return row.fault + row.explanation;
  return row.fault + " " + row.explanation;
}

std::string one_line(std::string text) {
  for (char& each : text) each = each == '\n' ? ' ' : each;
  return text;
}

// A row for each part of the text.
void add_lines(ListView& list, std::string_view text, std::string_view between, CellColour colour) {
  while (!text.empty()) {
    const auto end = std::min(text.find(between), text.size());
    list.set_colour(list.add_row(std::string(text.substr(0, end))), 0, colour);
    text.remove_prefix(std::min(end + between.size(), text.size()));
  }
}

}  // namespace

RuleTablesForm::RuleTablesForm(Application& application, std::string place)
    : Form("Taisyklių lentelės"), application_(application), place_(std::move(place)) {
  pnlFolder.set_caption("Taisyklių lentelės: " + place_);
  chcShow.set_items({{"Visi atvejai"}, {"Tik netinkami"}});
  chcShow.select_item(0);
  chcShow.on_change = [this] { show_cases(); };
  lvwCases.on_select = [this] { show_chosen(); };
  cmdRun.on_click = [this] { run(); };
  cmdClose.on_click = [this] { close(); };
  set_layout(column({pnlFolder, row({lblSummary, field("Rodyti", chcShow)}), lvwCases, lblCase, lvwResults, lvwSteps,
                     row({cmdRun, cmdClose})}));
}

// What was tried before stays in sight until everything was tried again.
void RuleTablesForm::run() {
  const std::vector<std::string> files = rule_files(place_);
  const auto pointer = application_.hourglass();
  RuleBench bench([this](Application& tried) {
    for (const std::string& file : application_.plugin_files()) tried.load_plugin(file);
  });
  std::vector<RuleTable> tables;
  for (const std::string& file : files) tables.push_back(check_rule_table(bench, file));
  tables_ = std::move(tables);
  std::size_t cases = 0, passed = 0, unread = 0;
  for (const RuleTable& table : tables_) {
    cases += table.rows.size();
    passed += table.passed_count();
    unread += table.fault.empty() ? 0U : 1U;
  }
  const bool all = passed == cases && unread == 0;
  const std::string of_all = "atvejų " + std::to_string(cases) + ", netinkamų " + std::to_string(cases - passed);
  lblSummary.set_caption((all ? "✓ Tinka viskas: " : "✗ Ne viskas tinka: ") + of_all +
                         (unread == 0 ? "" : ", neišbandytų lentelių " + std::to_string(unread)));
  show_cases();
}

// The first case at fault is chosen, so that it is in sight.
void RuleTablesForm::show_cases() {
  {
    const ListView::BulkChange bulk(lvwCases);
    lvwCases.clear();
    shown_.clear();
    std::optional<std::size_t> first_red;
    const bool red_alone = chcShow.selected() == 1U;
    for (std::size_t at = 0; at < tables_.size(); ++at) {
      if (!tables_[at].fault.empty()) shown_.push_back({at, 0, true});
      for (std::size_t row = 0; row < tables_[at].rows.size(); ++row) {
        if (!red_alone || !tables_[at].rows[row].passed()) shown_.push_back({at, row, false});
      }
    }
    lvwCases.reserve(shown_.size());
    for (const ShownCase& each : shown_) {
      add_case(each);
      const bool red = each.of_table || !tables_[each.table].rows[each.row].passed();
      if (red && !first_red) first_red = lvwCases.row_count() - 1;
    }
    lvwCases.select_row(first_red ? first_red : shown_.empty() ? std::nullopt : std::optional<std::size_t>(0));
  }
  show_chosen();
}

void RuleTablesForm::add_case(const ShownCase& shown) {
  const RuleTable& table = tables_[shown.table];
  const bool passed = !shown.of_table && table.rows[shown.row].passed();
  const std::size_t at = lvwCases.add_row(mark_text(passed));
  lvwCases.set_text(at, kTableColumn, std::filesystem::path(table.file).filename());
  lvwCases.set_text(at, kRuleColumn, table.rule);
  if (shown.of_table) {
    lvwCases.set_text(at, kWhyColumn, one_line(table.fault));
  } else {
    const RuleRow& row = table.rows[shown.row];
    lvwCases.set_text(at, kLineColumn, std::to_string(row.line));
    lvwCases.set_text(at, kCaseColumn, row.name);
    lvwCases.set_text(at, kFactsColumn, row.facts);
    lvwCases.set_text(at, kWhyColumn, why(row));
  }
  mark(lvwCases, at, passed);
}

void RuleTablesForm::show_chosen() {
  const ListView::BulkChange results(lvwResults), steps(lvwSteps);
  lvwResults.clear();
  lvwSteps.clear();
  lblCase.set_caption("");
  const auto chosen = lvwCases.selected();
  if (!chosen) return;
  const ShownCase& shown = shown_[*chosen];
  const RuleTable& table = tables_[shown.table];
  if (shown.of_table) {
    lblCase.set_caption("Lentelė neišbandyta");
    add_lines(lvwSteps, table.fault, "\n", CellColour::kRed);
    return;
  }
  const RuleRow& row = table.rows[shown.row];
  lblCase.set_caption(case_text(row));
  for (const RuleResult& each : row.results) {
    const std::size_t at = lvwResults.add_row(mark_text(each.passed));
    lvwResults.set_text(at, 1, each.column);
    lvwResults.set_text(at, 2, each.expected);
    lvwResults.set_text(at, 3, each.got);
    mark(lvwResults, at, each.passed);
  }
  add_lines(lvwSteps, row.fault, "\n", CellColour::kRed);
  add_lines(lvwSteps, row.explanation, "; ", CellColour::kNormal);
}

}  // namespace quor
