#include "host/objects/child_rows.h"

#include "host/company/readable_columns.h"
#include "host/objects/record_checks.h"
#include "host/store/tables/statements.h"

namespace quor {

namespace {

constexpr FieldHandle kId{0};
constexpr std::size_t kFirstField = 2;  // behind ID and the owner's GUID

std::vector<FieldInfo> fields_of(const ChildRows& type) {
  std::vector<FieldInfo> fields = {{"ID", FieldType::kInt32}, {type.owner_guid, FieldType::kText}};
  for (const RecordField& field : type.fields) fields.push_back(field.info);
  return fields;
}

Variant value_of(Database& database, const ChildRows& type, std::size_t field, std::int32_t id, const RowChange& row) {
  return stored_value(database, type.table, type.fields[field], id, row.current({kFirstField + field}));
}

void refuse_unfit_row(const ChildRows& type, const RowChange& row) {
  std::vector<FieldHandle> handles;
  for (std::size_t i = 0; i < type.fields.size(); ++i) handles.push_back({kFirstField + i});
  refuse_unfit_values(type.table, type.fields, handles, row);
}

void append_values(Database& database, const ChildRows& type, std::int32_t id, const RowChange& row,
                   std::vector<ColumnValue>& values) {
  for (std::size_t i = 0; i < type.fields.size(); ++i) {
    values.push_back({type.fields[i].column(), value_of(database, type, i, id, row)});
  }
}

void add_row(Database& database, const ChildRows& type, std::int32_t owner, const RowChange& row) {
  const std::int32_t id = row.current(kId).to_int32();
  std::vector<ColumnValue> values = {{"id", id}, {type.owner_column, owner}};
  append_values(database, type, id, row, values);
  insert_row(database, type.table, values);
}

void change_row(Database& database, const ChildRows& type, const RowChange& row) {
  const std::int32_t id = row.base(kId).to_int32();
  std::vector<ColumnValue> values;
  append_values(database, type, id, row, values);
  update_row(database, type.table, id, values);
}

}  // namespace

std::shared_ptr<Recordset> new_child_rows(const ChildRows& type) {
  auto rows = std::make_shared<Recordset>();
  for (const FieldInfo& field : fields_of(type)) rows->Fields().Append(field.name, field.type, field.size);
  rows->Open();
  return rows;
}

std::shared_ptr<Recordset> read_child_rows(Database& database, const ChildRows& type, std::int32_t owner,
                                           const std::string& owner_guid) {
  std::string columns = "id, CAST(:p1 AS TEXT)";
  for (const RecordField& field : type.fields) {
    const bool is_short = field.info.type == FieldType::kInt16;
    columns += ", " + (is_short ? readable_int16(field.column()) : field.column());
  }
  return database.read(
      "SELECT " + columns + " FROM " + type.table + " WHERE " + type.owner_column + " = :p0 ORDER BY " + type.order,
      fields_of(type), {owner, owner_guid});
}

void store_child_rows(Database& database, const ChildRows& type, std::int32_t owner, Recordset& rows) {
  // A row that an earlier, failed save gave an ID gets a new one: that ID went back with the transaction.
  const auto all = rows.Clone();
  for (; !all->Eof(); all->MoveNext()) {
    if (all->row_state() == RowState::kAdded) all->set_field(kId, database.reserve_ids(type.table));
  }
  rows.for_each_change([&](const RowChange& row) {
    if (row.state() != RowState::kDeleted) refuse_unfit_row(type, row);
    switch (row.state()) {
      case RowState::kAdded:
        return add_row(database, type, owner, row);
      case RowState::kModified:
        return change_row(database, type, row);
      case RowState::kDeleted:
        return delete_row(database, type.table, row.base(kId).to_int32());
      case RowState::kUnchanged:
        return;
    }
  });
}

}  // namespace quor
