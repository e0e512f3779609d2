#include "host/exchange/import.h"

#include <algorithm>
#include <filesystem>
#include <map>

#include "host/exchange/import_check.h"
#include "host/exchange/import_write.h"

namespace quor {

namespace {

std::string text_of(const std::vector<ImportFault>& faults) {
  std::string text;
  for (const ImportFault& fault : faults) {
    text += (text.empty() ? "" : "\n") + fault.file + ":" + std::to_string(fault.line) + ": ";
    text += (fault.column.empty() ? "" : "stulpelis „" + fault.column + "“: ") + fault.text;
  }
  return text;
}

// By file as they were given, then by line.
void sort_faults(std::vector<ImportFault>& faults, const std::vector<TableFile>& files) {
  std::map<std::string_view, std::size_t> place;
  for (const TableFile& file : files) place.emplace(file.name, place.size());
  std::stable_sort(faults.begin(), faults.end(), [&](const ImportFault& a, const ImportFault& b) {
    return std::pair(place.at(a.file), a.line) < std::pair(place.at(b.file), b.line);
  });
}

// What is checked must still hold when it is written. A file has one writer anyway, a server has many.
void keep_others_out(Database& database, const std::vector<TableFile>& files) {
  if (!database.on_server()) return;
  std::string tables = "closed_months";
  for (const TableFile& file : files) {
    if (file.table->name != tables) tables += ", " + std::string(file.table->name);
  }
  database.execute("LOCK TABLE " + tables + " IN SHARE ROW EXCLUSIVE MODE");
}

}  // namespace

ImportRefused::ImportRefused(std::vector<ImportFault> faults)
    : std::runtime_error(text_of(faults)), faults_(std::move(faults)) {}

std::vector<ImportedTable> import_tables(Database& database, std::vector<ImportSource> sources,
                                         const std::string& user) {
  // The order of the tables is that of their references.
  std::sort(sources.begin(), sources.end(), [](const auto& a, const auto& b) { return a.table < b.table; });
  std::vector<ImportFault> faults;
  std::vector<TableFile> files;
  for (const ImportSource& source : sources) files.push_back(read_table_file(*source.table, source.file, faults));

  Transaction transaction(database);
  keep_others_out(database, files);
  ImportCheck check(database, files, faults);
  std::vector<TablePlan> plans;
  for (TableFile& file : files) plans.push_back(check.check(file));
  if (!faults.empty()) {
    sort_faults(faults, files);
    throw ImportRefused(std::move(faults));
  }

  std::vector<ImportedTable> done;
  bool anything = false;
  for (std::size_t at = 0; at < plans.size(); ++at) {
    write_plan(database, plans[at], user);
    done.push_back({sources[at], plans[at].added.size(), plans[at].changed.size(), plans[at].unchanged});
    anything = anything || done.back().added + done.back().changed > 0;
  }
  if (anything) transaction.commit();
  return done;
}

std::vector<ImportSource> sources_of_folder(const std::string& folder) {
  std::error_code error;
  std::vector<std::string> unknown;
  std::vector<ImportSource> sources;
  for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
    if (entry.path().extension() != ".csv") continue;
    if (const ExchangedTable* table = find_exchanged_table(entry.path().stem().string())) {
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
