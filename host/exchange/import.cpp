#include "host/exchange/import.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "host/company/closed_reach.h"
#include "host/company/rights.h"
#include "host/exchange/cell_values.h"
#include "host/exchange/import_check.h"
#include "host/exchange/import_write.h"
#include "host/exchange/table_heads.h"
#include "host/exchange/table_rights.h"
#include "host/exchange/written_check.h"

namespace quor {

namespace {

std::string text_of(const std::vector<ImportFault>& faults) {
  std::string text;
  for (const ImportFault& fault : faults) text += (text.empty() ? "" : "\n") + line_of(fault);
  return text;
}

// Every fault by file as they were given, then by line; nothing without faults.
void refuse(std::vector<ImportFault>& faults, const std::vector<TableFile>& files, bool into_closed = false) {
  if (faults.empty()) return;
  std::map<std::string_view, std::size_t> place;
  for (const TableFile& file : files) place.emplace(file.name, place.size());
  std::stable_sort(faults.begin(), faults.end(), [&](const ImportFault& a, const ImportFault& b) {
    return std::pair(place.at(a.file), a.line) < std::pair(place.at(b.file), b.line);
  });
  throw ImportRefused(std::move(faults), into_closed);
}

struct WatchedPlan {
  const TablePlan* plan;
  ClosedReach reach;
};

std::vector<WatchedPlan> watch_closed_months(Database& database, const std::vector<TablePlan>& plans) {
  std::vector<WatchedPlan> watched;
  for (const TablePlan& plan : plans) {
    const bool writes = !plan.added.empty() || !plan.changed.empty();
    if (writes && ClosedReach::watches(plan.table->name)) watched.push_back({&plan, {database, plan.table->name}});
  }
  return watched;
}

// The number by which the watch knows the row.
std::int32_t watched_id(const StoredTable& table, const FileRow& row) {
  const std::size_t month = table.column("month");
  if (month < table.columns.size()) return static_cast<std::int32_t>(month_of_cell(row.cells[month]).serial());
  return row.cells[table.column(table.name == "settings_rows" ? "settings_id" : "id")].to_int32();
}

// The plan has them as they were met, the changed ones first.
std::vector<ImportedRow> first_rows(const TablePlan& plan) {
  std::vector<ImportedRow> rows = plan.first_changed;
  rows.insert(rows.end(), plan.first_added.begin(), plan.first_added.end());
  std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
  if (rows.size() > ImportedRow::kMostShown) rows.resize(ImportedRow::kMostShown);
  return rows;
}

// Each row of the file that reaches into closed months is told.
void faults_of_reach(WatchedPlan& watched, const std::vector<TableFile>& files, std::vector<ImportFault>& faults) {
  const auto reached = watched.reach.reached();
  if (reached.empty()) return;
  const StoredTable& table = *watched.plan->table;
  const auto file = std::find_if(files.begin(), files.end(), [&](const auto& each) { return each.table == &table; });
  for (const auto* rows : {&watched.plan->added, &watched.plan->changed}) {
    for (const FileRow& row : *rows) {
      const auto found = reached.find(watched_id(table, row));
      if (found != reached.end()) file->add_fault(faults, row, "", reach_text(found->second));
    }
  }
}

}  // namespace

ImportRefused::ImportRefused(std::vector<ImportFault> faults, bool into_closed)
    : std::runtime_error(text_of(faults)), faults_(std::move(faults)), into_closed_(into_closed) {}

std::vector<ImportedTable> import_tables(RightsGuard& guard, std::vector<ImportSource> sources, IntoClosed into_closed,
                                         ImportRun run) {
  for (const ImportSource& source : sources) require_import_right(guard, *source.table);
  Database& database = guard.company().database();
  // The order of the tables is that of their references.
  std::sort(sources.begin(), sources.end(), [](const auto& a, const auto& b) { return a.table < b.table; });
  std::vector<ImportFault> faults;
  std::vector<TableFile> files;
  for (const ImportSource& source : sources)
    files.push_back(read_table_file(*source.table, source.file, source.mapping, faults));

  Transaction transaction(database);  // no other program writes from here on: what is checked holds when it is written
  ImportCheck check(database, files, faults);
  std::vector<TablePlan> plans;
  for (TableFile& file : files) plans.push_back(check.check(file));
  refuse(faults, files);

  std::vector<WatchedPlan> watched =
      into_closed == IntoClosed::kAgreed ? std::vector<WatchedPlan>() : watch_closed_months(database, plans);
  WrittenCheck written(database, files);
  std::vector<ImportedTable> done;
  bool anything = false;
  const bool brings_users =
      std::any_of(files.begin(), files.end(), [](const TableFile& file) { return file.table->name == "users"; });
  for (std::size_t at = 0; at < plans.size(); ++at) {
    write_plan(database, plans[at], guard.user());
    done.push_back({.source = sources[at],
                    .added = plans[at].added.size(),
                    .changed = plans[at].changed.size(),
                    .unchanged = plans[at].unchanged,
                    .first = first_rows(plans[at])});
    anything = anything || done.back().added + done.back().changed > 0;
  }
  for (std::size_t at = 0; at < files.size(); ++at) done[at].warnings = written.check(files[at], faults);
  refuse(faults, files);
  for (WatchedPlan& each : watched) faults_of_reach(each, files, faults);
  refuse(faults, files, /*into_closed=*/true);
  if (!anything) return done;
  if (brings_users) require_administrator_among_users(database);
  if (run == ImportRun::kTry) return done;
  transaction.commit();
  guard.company().forget();
  return done;
}

std::vector<ImportSource> sources_of_folder(const std::string& folder) {
  std::error_code error;
  std::vector<std::string> unknown;
  std::vector<ImportSource> sources;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() != ".csv") continue;
    if (const StoredTable* table = table_called(entry.path().stem().string())) {
      sources.push_back({table, entry.path().string()});
    } else {
      unknown.push_back(entry.path().string());
    }
  }
  if (error) throw std::runtime_error("nepavyksta perskaityti aplanko „" + folder + "“");
  if (!unknown.empty()) {
    throw std::runtime_error("failo vardas ne lentelės: „" + *std::min_element(unknown.begin(), unknown.end()) + "“");
  }
  if (sources.empty()) throw std::runtime_error("aplanke nėra lentelių failų: „" + folder + "“");
  return sources;
}

}  // namespace quor
