#include "host/report/record_text.h"

#include "host/report/report_text.h"
#include "host/text/plain_values.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

bool is_number(FieldType type) {
  return type == FieldType::kInt16 || type == FieldType::kInt32 || type == FieldType::kDouble;
}

// Child record sets have no place in a cell; their size says what is there.
std::string cell_text(const Variant& value, int decimals) {
  if (value.kind() == Variant::Kind::kRecordSet) {
    const auto& child = value.record_set();
    return child ? "[" + std::to_string(child->RecordCount()) + "]" : "";
  }
  if (decimals >= 0 && !value.is_null() && value.kind() == Variant::Kind::kDouble) {
    return fixed_text(value.to_double(), decimals);
  }
  return null_to_text(value);
}

// As programs and spreadsheets read it.
std::string plain_text(const Variant& value, const CsvStyle& style) {
  using Kind = Variant::Kind;
  if (value.is_null()) return "";
  if (value.kind() == Kind::kDouble) return plain_number(value.to_double(), style.decimal_comma);
  if (value.kind() == Kind::kDate) return plain_day(value.to_date());
  return cell_text(value, -1);
}

// The record set as the lines of a report; `text_of` makes a value its cell.
template <typename TextOf>
ReportData lines_of(Recordset& rows, const std::vector<TextColumnLayout>& columns, const TextOf& text_of) {
  ReportData report;
  std::vector<FieldHandle> fields;
  for (const TextColumnLayout& column : columns) {
    fields.push_back(rows.handle(column.field));
    report.columns.push_back(
        {.key = column.field,
         .caption = column.caption,
         .alignment = is_number(rows.field_info(fields.back()).type) ? CellAlignment::kRight : CellAlignment::kLeft});
  }
  if (rows.RecordCount() == 0) return report;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      report.cells.push_back({.text = text_of(rows.field(fields[i]), columns[i].decimals)});
    }
    ++report.lines;
  }
  return report;
}

}  // namespace

std::vector<TextColumnLayout> all_fields(const Recordset& rows) {
  std::vector<TextColumnLayout> columns;
  for (std::size_t i = 0; i < rows.field_count(); ++i) {
    const std::string& name = rows.field_info({i}).name;
    columns.push_back({.field = name, .caption = name});
  }
  return columns;
}

ReportData record_report(Recordset& rows, const std::vector<TextColumnLayout>& columns) {
  return lines_of(rows, columns, cell_text);
}

std::string table_text(Recordset& rows, const std::vector<TextColumnLayout>& columns) {
  return table_text(record_report(rows, columns), {});
}

std::string csv_text(Recordset& rows, const std::vector<TextColumnLayout>& columns, const CsvStyle& style) {
  const auto text_of = [&](const Variant& value, int /*decimals*/) { return plain_text(value, style); };
  return csv_text(lines_of(rows, columns, text_of), style);
}

}  // namespace quor
