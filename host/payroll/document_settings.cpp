#include "host/payroll/document_settings.h"

#include <charconv>

#include "host/company/guid.h"
#include "host/store/tables/table_rows.h"

namespace quor {

namespace {

// Of a line of the settings, in the order of the table's columns behind the GUID and the line's number.
std::size_t kept_fields() { return stored_table("document_settings").columns.size() - 2; }

// To the last bit: numbers that print alike may differ.
std::string exact_text(const Variant& value) {
  if (value.is_null()) return "Null";
  if (value.kind() != Variant::Kind::kDouble) return "'" + value.to_text() + "'";
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, value.to_double()).ptr};
}

}  // namespace

DocumentSettings document_settings(std::shared_ptr<Recordset> lines) {
  const std::size_t kept = kept_fields();
  std::string content;
  const auto walked = lines->Clone();
  for (; !walked->Eof(); walked->MoveNext()) {
    for (std::size_t i = 0; i < kept; ++i) content += exact_text(walked->field(FieldHandle{i})) + ";";
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
  TableRows rows("document_settings");
  const std::size_t kept = kept_fields();
  for (std::int32_t line = 1; !lines->Eof(); lines->MoveNext(), ++line) {
    std::vector<Variant> cells = {settings.guid, line};
    for (std::size_t i = 0; i < kept; ++i) cells.push_back(lines->field(FieldHandle{i}));
    rows.append_row(cells);
  }
  rows.insert_into(database);
}

}  // namespace quor
