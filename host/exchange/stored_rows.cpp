#include "host/exchange/stored_rows.h"

#include "host/exchange/cell_values.h"
#include "platform/data/column.h"

namespace quor {

namespace {

FieldType field_type(CellType type) {
  switch (type) {
    case CellType::kId:
    case CellType::kWhole:
    case CellType::kFlag:
    case CellType::kTimeCode:
      return FieldType::kInt32;
    case CellType::kNumber:
      return FieldType::kDouble;
    case CellType::kDate:
    case CellType::kMonth:
    case CellType::kDayOrMonth:
      return FieldType::kDate;
    case CellType::kText:
      break;
  }
  return FieldType::kText;
}

// Rows whose ID does not travel come in the order in which they were written, so that a company that has moved adds
// them up in the same order; all others by their key.
std::string order_of(const ExchangedTable& table) {
  if (table.hidden_id) return "id";
  std::string order;
  for (const std::string_view name : table.key) order += (order.empty() ? "" : ", ") + std::string(name);
  return order;
}

}  // namespace

std::vector<FieldInfo> stored_fields(const ExchangedTable& table) {
  std::vector<FieldInfo> fields;
  for (const ExchangedColumn& column : table.columns) {
    if (column.type == CellType::kDayOrMonth) {
      fields.push_back({"month", FieldType::kDate});
      fields.push_back({"day", FieldType::kDate});
    } else {
      const bool code = column.type == CellType::kTimeCode;
      fields.push_back({code ? "time_code_id" : std::string(column.name), field_type(column.type)});
    }
  }
  return fields;
}

void append_row(const ExchangedTable& table, const std::vector<Variant>& cells, std::vector<ColumnData>& columns) {
  for (std::size_t cell = 0, at = 0; cell < cells.size(); ++cell) {
    if (table.columns[cell].type == CellType::kDayOrMonth) {
      columns[at++].append(month_of_cell(cells[cell]));
      columns[at++].append(cells[cell].kind() == Variant::Kind::kDate ? cells[cell] : Variant(kNull));
    } else {
      columns[at++].append(cells[cell]);
    }
  }
}

void read_stored(Database& database, const ExchangedTable& table, const RowVisitor& visit) {
  std::vector<FieldInfo> fields = stored_fields(table);
  if (table.hidden_id) fields.push_back({"id", FieldType::kInt32});
  std::string sql;
  for (const FieldInfo& field : fields) sql += (sql.empty() ? "SELECT " : ", ") + field.name;
  const auto rows = database.read(sql + " FROM " + std::string(table.name) + " ORDER BY " + order_of(table), fields);

  std::vector<Variant> cells(table.columns.size());
  for (; !rows->Eof(); rows->MoveNext()) {
    std::size_t at = 0;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
      if (table.columns[cell].type == CellType::kDayOrMonth) {
        const Variant month = rows->field(FieldHandle{at++}), day = rows->field(FieldHandle{at++});
        cells[cell] = day.is_null() ? Variant(cell_text(CellType::kMonth, month)) : day;
      } else {
        cells[cell] = rows->field(FieldHandle{at++});
      }
    }
    visit(cells, table.hidden_id ? rows->int32(FieldHandle{at}) : 0);
  }
}

}  // namespace quor
