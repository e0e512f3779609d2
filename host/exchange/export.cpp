#include "host/exchange/export.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <unordered_map>

#include "host/exchange/cell_values.h"
#include "host/exchange/csv.h"
#include "host/exchange/stored_rows.h"
#include "host/exchange/time_codes.h"

namespace quor {

namespace {

namespace files = std::filesystem;

// The code's text by code_id, each looked up once.
class CodeTexts {
 public:
  explicit CodeTexts(Database& database) : codes_(database) {}
  const std::string& of(std::int32_t code_id) {
    const auto [entry, is_new] = texts_.try_emplace(code_id);
    if (is_new) entry->second = codes_.text(code_id);
    return entry->second;
  }

 private:
  TimeCodes codes_;
  std::unordered_map<std::int32_t, std::string> texts_;
};

void write_tables(Database& database, const files::path& folder) {
  const std::int64_t begun_at = database.change_count();
  for (const ExchangedTable& table : exchanged_tables()) {
    const files::path path = folder / (std::string(table.name) + ".csv");
    std::ofstream file(path, std::ios::binary);
    file << export_table(database, table) << std::flush;
    if (!file) throw std::runtime_error("nepavyksta įrašyti failo „" + path.string() + "“");
  }
  if (database.change_count() != begun_at)
    throw std::runtime_error("tuo metu įmonės duomenis keitė kitas vartotojas, bandykite dar kartą");
}

}  // namespace

std::string export_table(Database& database, const ExchangedTable& table) {
  std::string csv;
  CodeTexts codes(database);
  for (const ExchangedColumn& column : table.columns) csv += (csv.empty() ? "" : ",") + std::string(column.name);
  csv += "\r\n";
  read_stored(database, table, [&](const std::vector<Variant>& cells, std::int32_t /*id*/) {
    for (std::size_t at = 0; at < cells.size(); ++at) {
      const CellType type = table.columns[at].type;
      if (type == CellType::kTimeCode) {
        append_csv_text(csv, codes.of(cells[at].to_int32()));
      } else if (!cells[at].is_null()) {
        append_csv_text(csv, cell_text(type, cells[at]));
      }
      csv += at + 1 == cells.size() ? "\r\n" : ",";
    }
  });
  return csv;
}

void export_company(Database& database, const std::string& folder) {
  std::error_code error;
  const bool made = files::create_directory(folder, error);
  if (error || (!made && !files::is_empty(folder, error)) || error)
    throw std::runtime_error("aplankas turi būti naujas arba tuščias: „" + folder + "“");
  try {
    write_tables(database, folder);
  } catch (...) {
    for (const ExchangedTable& table : exchanged_tables())
      files::remove(files::path(folder) / (std::string(table.name) + ".csv"), error);
    if (made) files::remove(folder, error);
    throw;
  }
}

}  // namespace quor
