#include "host/exchange/export.h"

#include <filesystem>
#include <stdexcept>
#include <unordered_map>

#include "host/exchange/cell_values.h"
#include "host/exchange/stored_rows.h"
#include "host/exchange/table_rights.h"
#include "host/exchange/time_codes.h"
#include "host/store/addresses.h"
#include "host/store/whole_file.h"
#include "host/text/csv_writer.h"

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

void write_tables(RightsGuard& guard, const files::path& folder, const CsvStyle& style) {
  Database& database = guard.company().database();
  const std::int64_t begun_at = database.change_count();
  for (const StoredTable& table : stored_tables())
    write_whole_file(folder / (std::string(table.name) + ".csv"), export_table(guard, table, style));
  if (database.change_count() != begun_at)
    throw std::runtime_error("tuo metu įmonės duomenis keitė kitas vartotojas, bandykite dar kartą");
}

// As a program sees the cells: days and months in the files' own form are texts but for whole days.
FieldType shown_type(ColumnKind type) {
  switch (type) {
    case ColumnKind::kId:
    case ColumnKind::kWhole:
    case ColumnKind::kFlag:
      return FieldType::kInt32;
    case ColumnKind::kNumber:
      return FieldType::kDouble;
    case ColumnKind::kDate:
      return FieldType::kDate;
    default:
      return FieldType::kText;
  }
}

}  // namespace

std::string export_table(RightsGuard& guard, const StoredTable& table, const CsvStyle& style) {
  require_export_right(guard, table);
  Database& database = guard.company().database();
  CsvWriter csv(style);
  CodeTexts codes(database);
  csv.start_file();
  for (const StoredColumn& column : table.columns) csv.plain(column.name);
  csv.end_line();
  read_stored(database, table, [&](const std::vector<Variant>& cells, std::int32_t /*id*/) {
    for (std::size_t at = 0; at < cells.size(); ++at) {
      const ColumnKind type = table.columns[at].kind;
      if (type == ColumnKind::kTimeCode) {
        csv.text(codes.of(cells[at].to_int32()));
      } else if (cells[at].is_null()) {
        csv.null();
      } else if (type == ColumnKind::kText) {
        csv.text(cells[at].to_text());
      } else {
        csv.plain(cell_text(type, cells[at], style));
      }
    }
    csv.end_line();
  });
  return csv.take();
}

std::shared_ptr<Recordset> table_rows(RightsGuard& guard, const StoredTable& table) {
  require_export_right(guard, table);
  Database& database = guard.company().database();
  auto rows = std::make_shared<Recordset>();
  CodeTexts codes(database);
  for (const StoredColumn& column : table.columns)
    rows->Fields().Append(std::string(column.name), shown_type(column.kind));
  rows->Open();
  read_stored(database, table, [&](const std::vector<Variant>& cells, std::int32_t /*id*/) {
    rows->AddNew();
    for (std::size_t at = 0; at < cells.size(); ++at) {
      const ColumnKind type = table.columns[at].kind;
      Variant shown = cells[at];
      if (type == ColumnKind::kTimeCode) {
        shown = codes.of(cells[at].to_int32());
      } else if (!shown.is_null() && (type == ColumnKind::kMonth || type == ColumnKind::kDayOrMonth)) {
        shown = cell_text(type, shown);
      }
      rows->set_field(FieldHandle{at}, shown);
    }
    rows->Update();
  });
  return rows;
}

void export_company(RightsGuard& guard, const std::string& folder, const CsvStyle& style) {
  for (const StoredTable& table : stored_tables()) require_export_right(guard, table);
  std::error_code error;
  const bool made = files::create_directory(folder, error);
  if (error || (!made && !files::is_empty(folder, error)) || error)
    throw std::runtime_error("aplankas turi būti naujas arba tuščias: „" + shown_address(folder) + "“");
  if (made) files::permissions(folder, files::perms::owner_all, error);
  try {
    write_tables(guard, folder, style);
  } catch (...) {
    for (const StoredTable& table : stored_tables())
      files::remove(files::path(folder) / (std::string(table.name) + ".csv"), error);
    if (made) files::remove(folder, error);
    throw;
  }
}

}  // namespace quor
