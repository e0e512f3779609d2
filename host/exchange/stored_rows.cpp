#include "host/exchange/stored_rows.h"

#include "host/exchange/cell_values.h"
#include "platform/data/column.h"

namespace quor {

namespace {

// Rows whose ID does not travel come in the order in which they were written, so that a company that has moved adds
// them up in the same order; all others by their key.
std::string order_of(const StoredTable& table) {
  if (table.hidden_id) return "id";
  std::string order;
  for (const std::string_view name : table.key) order += (order.empty() ? "" : ", ") + std::string(name);
  return order;
}

}  // namespace

std::vector<Variant> stored_cells(const StoredTable& table, const std::vector<Variant>& cells) {
  std::vector<Variant> stored;
  for (std::size_t cell = 0; cell < cells.size(); ++cell) {
    if (table.columns[cell].kind == ColumnKind::kDayOrMonth) {
      stored.emplace_back(month_of_cell(cells[cell]));
      stored.push_back(cells[cell].kind() == Variant::Kind::kDate ? cells[cell] : Variant(kNull));
    } else {
      stored.push_back(cells[cell]);
    }
  }
  return stored;
}

void read_stored(Database& database, const StoredTable& table, const RowVisitor& visit) {
  std::vector<FieldInfo> fields = stored_fields(table);
  if (table.hidden_id) fields.push_back({"id", FieldType::kInt32});
  std::string sql;
  for (const FieldInfo& field : fields) sql += (sql.empty() ? "SELECT " : ", ") + field.name;
  const auto rows = database.read(sql + " FROM " + std::string(table.name) + " ORDER BY " + order_of(table), fields);

  std::vector<Variant> cells(table.columns.size());
  for (; !rows->Eof(); rows->MoveNext()) {
    std::size_t at = 0;
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
      if (table.columns[cell].kind == ColumnKind::kDayOrMonth) {
        const Variant month = rows->field(FieldHandle{at++}), day = rows->field(FieldHandle{at++});
        cells[cell] = day.is_null() ? Variant(cell_text(ColumnKind::kMonth, month)) : day;
      } else {
        cells[cell] = rows->field(FieldHandle{at++});
      }
    }
    visit(cells, table.hidden_id ? rows->int32(FieldHandle{at}) : 0);
  }
}

}  // namespace quor
