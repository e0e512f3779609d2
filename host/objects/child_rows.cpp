#include "host/objects/child_rows.h"

#include <algorithm>
#include <set>

#include "host/company/readable_columns.h"
#include "host/objects/record_checks.h"
#include "host/store/tables/statements.h"

namespace quor {

namespace {

constexpr FieldHandle kId{0};

// Behind ID and the owner's GUID.
std::size_t first_field(const ChildRows& type) { return type.owner_guid == nullptr ? 1 : 2; }

std::vector<FieldInfo> fields_of(const ChildRows& type) {
  std::vector<FieldInfo> fields = {{"ID", FieldType::kInt32}};
  if (type.owner_guid != nullptr) fields.push_back({type.owner_guid, FieldType::kText});
  for (const RecordField& field : type.fields) fields.push_back(field.info);
  return fields;
}

Variant value_of(Database& database, const ChildRows& type, std::size_t field, std::int32_t id, const RowChange& row) {
  return stored_value(database, type.table, type.fields[field], id, row.current({first_field(type) + field}));
}

void refuse_unfit_row(const ChildRows& type, const RowChange& row) {
  std::vector<FieldHandle> handles;
  for (std::size_t i = 0; i < type.fields.size(); ++i) handles.push_back({first_field(type) + i});
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

// Whether the table allows each owner one row of a kind.
bool has_joint_key(const ChildRows& type) {
  const auto& uniques = stored_table(type.table).uniques;
  return std::any_of(uniques.begin(), uniques.end(), [&](const StoredTable::Names& unique) {
    return unique.size() > 1 && unique.front() == type.owner_column;
  });
}

void refuse_second_row_of_a_date(const ChildRows& type, Recordset& rows) {
  if (!has_joint_key(type)) return;
  const FieldHandle date{first_field(type)};
  std::set<Date> dates;
  if (rows.RecordCount() > 0) rows.MoveFirst();
  for (; !rows.Eof(); rows.MoveNext()) {
    const Variant from = rows.field(date);
    if (from.is_null() || dates.insert(from.to_date()).second) continue;
    throw StoreError(StoreFault::kRefused, "Dvi eilutės galioja nuo tos pačios dienos: " + from.to_text() + ".");
  }
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
  std::string columns = "id";
  std::vector<Variant> binds = {owner};
  if (type.owner_guid != nullptr) {
    columns += ", CAST(:p1 AS TEXT)";
    binds.emplace_back(owner_guid);
  }
  for (const RecordField& field : type.fields) {
    const bool is_short = field.info.type == FieldType::kInt16;
    columns += ", " + (is_short ? readable_int16(field.column()) : field.column());
  }
  return database.read(
      "SELECT " + columns + " FROM " + type.table + " WHERE " + type.owner_column + " = :p0 ORDER BY " + type.order,
      fields_of(type), binds);
}

void store_child_rows(Database& database, const ChildRows& type, std::int32_t owner, Recordset& rows) {
  // A row that an earlier, failed save gave an ID gets a new one: that ID went back with the transaction.
  const auto all = rows.Clone();
  for (; !all->Eof(); all->MoveNext()) {
    if (all->row_state() == RowState::kAdded) all->set_field(kId, database.reserve_ids(type.table));
  }
  rows.for_each_change([&](const RowChange& row) {
    if (row.state() != RowState::kDeleted) refuse_unfit_row(type, row);
  });
  refuse_second_row_of_a_date(type, *all);
  // Two rows may change places: where no two may be alike, all that change leave before the first comes back.
  const bool anew = has_joint_key(type);
  rows.for_each_change([&](const RowChange& row) {
    const bool leaves = row.state() == RowState::kDeleted || (anew && row.state() == RowState::kModified);
    if (leaves) delete_row(database, type.table, row.base(kId).to_int32());
  });
  rows.for_each_change([&](const RowChange& row) {
    if (row.state() == RowState::kAdded || (anew && row.state() == RowState::kModified)) {
      add_row(database, type, owner, row);
    } else if (row.state() == RowState::kModified) {
      change_row(database, type, row);
    }
  });
}

}  // namespace quor
