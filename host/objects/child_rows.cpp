#include "host/objects/child_rows.h"

#include "host/company/readable_columns.h"
#include "host/objects/record_checks.h"

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

void insert_row(Database& database, const ChildRows& type, std::int32_t owner, const RowChange& row) {
  std::string columns = std::string("id, ") + type.owner_column;
  std::string binds = ":p0, :p1";
  std::vector<Variant> values = {row.current(kId), owner};
  for (std::size_t i = 0; i < type.fields.size(); ++i) {
    columns += std::string(", ") + type.fields[i].column;
    binds += ", :p" + std::to_string(values.size());
    values.push_back(value_of(database, type, i, values.front().to_int32(), row));
  }
  database.execute(std::string("INSERT INTO ") + type.table + " (" + columns + ") VALUES (" + binds + ")", values);
}

void update_row(Database& database, const ChildRows& type, const RowChange& row) {
  std::string assignments;
  std::vector<Variant> values = {row.base(kId)};
  for (std::size_t i = 0; i < type.fields.size(); ++i) {
    assignments += (i == 0 ? "" : ", ") + std::string(type.fields[i].column) + " = :p" + std::to_string(values.size());
    values.push_back(value_of(database, type, i, values.front().to_int32(), row));
  }
  database.execute(std::string("UPDATE ") + type.table + " SET " + assignments + " WHERE id = :p0", values);
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
    columns += ", " + (is_short ? readable_int16(field.column) : std::string(field.column));
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
        return insert_row(database, type, owner, row);
      case RowState::kModified:
        return update_row(database, type, row);
      case RowState::kDeleted:
        database.execute(std::string("DELETE FROM ") + type.table + " WHERE id = :p0", {row.base(kId)});
        return;
      case RowState::kUnchanged:
        return;
    }
  });
}

}  // namespace quor
