#include "host/payroll/document_settings.h"

#include <charconv>

#include "host/company/guid.h"
#include "platform/data/column.h"

namespace quor {

namespace {

constexpr const char* kColumns[] = {"settings_id",
                                    "settings_guid",
                                    "date_from",
                                    "base_month_tariff_id",
                                    "base_hour_tariff_id",
                                    "personal_time_code_id_list",
                                    "extra_charge_percentage",
                                    "surcharge_percentage",
                                    "total_charge_percentage",
                                    "row_guid",
                                    "year_from",
                                    "year_to",
                                    "percentage"};

// To the last bit: numbers that print alike may differ.
std::string exact_text(const Variant& value) {
  if (value.is_null()) return "Null";
  if (value.kind() != Variant::Kind::kDouble) return "'" + value.to_text() + "'";
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value.to_double()).ptr};
}

}  // namespace

DocumentSettings document_settings(std::shared_ptr<Recordset> lines) {
  std::string content;
  const auto walked = lines->Clone();
  for (; !walked->Eof(); walked->MoveNext()) {
    for (std::size_t i = 0; i < std::size(kColumns); ++i) content += exact_text(walked->field(FieldHandle{i})) + ";";
    content += "\n";
  }
  return {content.empty() ? "" : named_guid(content), std::move(lines)};
}

void store_settings(Database& database, const DocumentSettings& settings) {
  if (settings.guid.empty()) return;
  const auto stored = database.read("SELECT line FROM document_settings WHERE guid = :p0",
                                    {{"Line", FieldType::kInt32}}, {settings.guid});
  if (stored->RecordCount() > 0) return;
  const auto lines = settings.lines->Clone();
  std::vector<ColumnData> columns = {ColumnData({"guid", FieldType::kText}), ColumnData({"line", FieldType::kInt32})};
  for (std::size_t i = 0; i < std::size(kColumns); ++i) {
    columns.push_back(ColumnData({kColumns[i], lines->field_info({i}).type}));
  }
  for (std::int32_t line = 1; !lines->Eof(); lines->MoveNext(), ++line) {
    columns[0].append(settings.guid);
    columns[1].append(line);
    for (std::size_t i = 0; i < std::size(kColumns); ++i) columns[i + 2].append(lines->field(FieldHandle{i}));
  }
  database.insert("document_settings", columns);
}

}  // namespace quor
