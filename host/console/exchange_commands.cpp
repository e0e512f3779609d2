#include "host/console/exchange_commands.h"

#include <iostream>

#include "host/console/session.h"
#include "host/exchange/export.h"
#include "host/exchange/import.h"

namespace quor {

namespace {

const StoredTable& table_of(const std::string& name) {
  const StoredTable* table = find_stored_table(name);
  if (table != nullptr) return *table;
  std::string known;
  for (const StoredTable& each : stored_tables()) known += (known.empty() ? "" : ", ") + each.words();
  throw UsageError("nėra lentelės „" + name + "“: yra " + known);
}

std::vector<ImportSource> sources_of(const ImportCommand& command) {
  if (!command.folder.empty()) {
    if (!command.table.empty()) throw UsageError("su --all lentelė nerašoma: „" + command.table + "“");
    return sources_of_folder(command.folder);
  }
  if (command.table.empty()) throw UsageError("trūksta reikšmės LENTELĖ arba --all");
  if (command.file.empty()) throw UsageError("trūksta reikšmės FAILAS");
  return {{&table_of(command.table), command.file}};
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
  return files;
}

ExitStatus run(const ImportCommand& command, const CommonOptions& options, std::ostream& out) {
  const auto sources = sources_of(command);
  Session session(options);
  try {
    const IntoClosed into_closed = command.into_closed ? IntoClosed::kAgreed : IntoClosed::kRefused;
    for (const ImportedTable& done : import_tables(session.application().guard(), sources, into_closed)) {
      for (const ImportFault& odd : done.warnings) std::cerr << "įspėjimas: " << line_of(odd) << '\n';
      out << done.source.file << ": naujų " << done.added << ", pakeistų " << done.changed << ", nepakitusių "
          << done.unchanged << ".\n";
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
