#include "host/report/record_text.h"

#include <algorithm>
#include <charconv>

#include "platform/data/number_text.h"
#include "platform/data/utf8.h"

namespace quor {

namespace {

bool is_number(FieldType type) {
  return type == FieldType::kInt16 || type == FieldType::kInt32 || type == FieldType::kDouble;
}

std::vector<FieldHandle> handles(const Recordset& rows, const std::vector<TextColumnLayout>& columns) {
  std::vector<FieldHandle> result;
  for (const TextColumnLayout& column : columns) result.push_back(rows.handle(column.field));
  return result;
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

template <typename Visit>
void for_each_row(Recordset& rows, const Visit& visit) {
  if (rows.RecordCount() == 0) return;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) visit();
}

std::string csv_cell(const Variant& value) {
  using Kind = Variant::Kind;
  if (value.is_null()) return "";
  if (value.kind() == Kind::kDouble) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value.to_double()).ptr);
  }
  std::string text = cell_text(value, -1);
  if (value.kind() == Kind::kDate) std::replace(text.begin(), text.end(), '.', '-');
  if (text.find_first_of(",;\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
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

std::string table_text(Recordset& rows, const std::vector<TextColumnLayout>& columns) {
  const auto fields = handles(rows, columns);
  std::vector<std::size_t> widths;
  for (const TextColumnLayout& column : columns) widths.push_back(character_count(column.caption));
  std::vector<std::string> cells;  // row after row
  for_each_row(rows, [&] {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      cells.push_back(cell_text(rows.field(fields[i]), columns[i].decimals));
      widths[i] = std::max(widths[i], character_count(cells.back()));
    }
  });

  std::string text;
  const auto add_cell = [&](std::size_t i, const std::string& cell) {
    const std::string padding(widths[i] - character_count(cell), ' ');
    const bool right = is_number(rows.field_info(fields[i]).type);
    const bool last = i + 1 == columns.size();
    text += right ? padding + cell : (last ? cell : cell + padding);
    text += last ? "\n" : "  ";
  };
  for (std::size_t i = 0; i < columns.size(); ++i) add_cell(i, columns[i].caption);
  for (std::size_t i = 0; i < columns.size(); ++i)
    text += std::string(widths[i], '-') + (i + 1 == columns.size() ? "\n" : "  ");
  for (std::size_t i = 0; i < cells.size(); ++i) add_cell(i % columns.size(), cells[i]);
  return text;
}

std::string csv_text(Recordset& rows, const std::vector<TextColumnLayout>& columns) {
  const auto fields = handles(rows, columns);
  std::string text;
  const auto end_cell = [&](std::size_t i) { text += i + 1 == columns.size() ? "\r\n" : ","; };
  for (std::size_t i = 0; i < columns.size(); ++i) {
    text += csv_cell(Variant(columns[i].caption));
    end_cell(i);
  }
  for_each_row(rows, [&] {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      text += csv_cell(rows.field(fields[i]));
      end_cell(i);
    }
  });
  return text;
}

}  // namespace quor
