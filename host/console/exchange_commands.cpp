#include "host/console/exchange_commands.h"

#include <filesystem>
#include <iostream>

#include "host/console/session.h"
#include "host/exchange/export.h"
#include "host/exchange/import.h"
#include "host/exchange/table_heads.h"
#include "host/store/addresses.h"

namespace quor {

namespace {

const StoredTable& table_of(const std::string& name) {
  const StoredTable* table = table_called(name);
  if (table != nullptr) return *table;
  std::string known;
  for (const StoredTable& each : stored_tables()) known += (known.empty() ? "" : ", ") + each.words();
  throw UsageError("nėra lentelės „" + name + "“: yra " + known);
}

// A table of null is found by the file's head.
std::vector<ImportSource> sources_of(const ImportCommand& command) {
  const std::string& first = command.table;
  if (!command.folder.empty()) {
    if (!first.empty()) throw UsageError("su --all lentelė ar failas nerašomi: „" + shown_address(first) + "“");
    if (!command.mapping.empty()) throw UsageError("su --all atitikmenys netinka: „" + command.mapping + "“");
    return sources_of_folder(command.folder);
  }
  if (first.empty()) throw UsageError("rašykite failo vardą, prieš jį galima LENTELĖ, arba --all APLANKAS");
  if (!command.file.empty()) return {{&table_of(first), command.file}};
  std::error_code none;
  if (table_called(first) != nullptr && !std::filesystem::exists(first, none))
    throw UsageError("trūksta reikšmės FAILAS: „" + first + "“ yra lentelė");
  return {{nullptr, first}};
}

std::vector<ImportSource> known_sources_of(const ImportCommand& command) {
  std::vector<ImportSource> sources = sources_of(command);
  for (ImportSource& source : sources) {
    if (!command.mapping.empty()) source.mapping = read_mapping_file(command.mapping);
    if (source.table == nullptr) source.table = &table_of_file(source.file, source.mapping);
  }
  return sources;
}

void show_tried(const ImportedTable& tried, std::ostream& out) {
  for (const ImportedRow& row : tried.first) out << line_of(row) << '\n';
  const std::size_t touched = tried.added + tried.changed;
  if (touched > tried.first.size()) out << "… ir dar " << touched - tried.first.size() << '\n';
}

}  // namespace

ExitStatus run(const ExportCommand& command, const CommonOptions& options, std::ostream& out) {
  if (command.table.empty() == command.folder.empty()) throw UsageError("rašykite lentelės vardą arba --all APLANKAS");
  const StoredTable* const table = command.table.empty() ? nullptr : &table_of(command.table);
  const auto style = csv_style_named(options.format);
  if (table == nullptr && !style) {
    throw UsageError("su --all formatas „" + options.format + "“ netinka: yra csv, csv-semicolon");
  }
  Session session(options);
  Application& application = session.application();
  if (table != nullptr && style) {
    out << export_table(application.guard(), *table, *style);
  } else if (table != nullptr) {
    const auto rows = table_rows(application.guard(), *table);
    write_rows(*rows, all_fields(*rows), options.format, out);
  } else {
    export_company(application.guard(), command.folder, *style);
    out << "Įrašytos visos lentelės: „" << command.folder << "“.\n";
  }
  return ExitStatus::kDone;
}

std::vector<std::string> files_written(const ExportCommand& command) {
  return command.folder.empty() ? std::vector<std::string>() : std::vector{command.folder};
}

std::vector<std::string> files_read(const ImportCommand& command) {
  std::vector<std::string> files;
  for (const ImportSource& source : sources_of(command)) files.push_back(source.file);
  if (!command.mapping.empty()) files.push_back(command.mapping);
  return files;
}

ExitStatus run(const ImportCommand& command, const CommonOptions& options, std::ostream& out) {
  const auto sources = known_sources_of(command);
  Session session(options);
  try {
    const IntoClosed into_closed = command.into_closed ? IntoClosed::kAgreed : IntoClosed::kRefused;
    const ImportRun import_run = command.dry_run ? ImportRun::kTry : ImportRun::kWrite;
    for (const ImportedTable& done : import_tables(session.application().guard(), sources, into_closed, import_run)) {
      if (command.dry_run) show_tried(done, out);
      for (const ImportFault& odd : done.warnings) std::cerr << "įspėjimas: " << line_of(odd) << '\n';
      out << done.source.file << (command.dry_run ? ": būtų naujų " : ": naujų ") << done.added << ", pakeistų "
          << done.changed << ", nepakitusių " << done.unchanged << ".\n";
    }
  } catch (const ImportRefused& refused) {
    std::cerr << refused.what() << '\n';
    throw std::runtime_error("neįrašyta nieko; klaidų: " + std::to_string(refused.faults().size()) +
                             (refused.into_closed() ? "; įrašyti vis tiek: --into-closed" : ""));
  }
  return ExitStatus::kDone;
}

ExitStatus make_empty_company(const CommonOptions& options, std::ostream& out) {
  const auto database = Database::create(options.company);
  out << "Sukurta tuščia įmonė „" << database->name() << "“.\n";
  return ExitStatus::kDone;
}

}  // namespace quor
