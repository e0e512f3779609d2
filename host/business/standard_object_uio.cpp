#include "host/business/standard_object_uio.h"

#include "host/business/child_rows.h"
#include "host/business/guid.h"
#include "host/business/object_codes.h"
#include "host/store/record_guard.h"
#include "platform/data/error.h"

namespace quor {

StandardObjectUIO::StandardObjectUIO(Company& company, std::shared_ptr<QuorMainBO> bo, std::string user)
    : company_(company), bo_(std::move(bo)), user_(std::move(user)) {}

std::string StandardObjectUIO::GetGUID() { return new_guid(); }

quor::Fields StandardObjectUIO::Fields() { return record_ ? record_->Fields() : quor::Fields(); }

// The standard object has no named data and methods of its own: that is what the plug-in's objects add.
MethodResult StandardObjectUIO::Properties(const std::string& /*name*/, const std::string& /*parameter*/) { return {}; }
MethodResult StandardObjectUIO::Methods(const std::string& /*name*/, const Parameters& /*parameters*/) { return {}; }

SaveStatus StandardObjectUIO::Read() {
  const RecordType* const type = record_type(std::string_view(oidr_).substr(0, kTypeCodeLength));
  if (type == nullptr) return {.Failed = true, .ErrorText = "Nežinomas objekto tipas: „" + oidr_ + "“."};
  if (oidr_.size() <= kTypeCodeLength) {
    make_new_record(*type);
    return {};
  }
  try {
    const auto id = id_of_key(oidr_);
    if (id && read_record(*type, *id)) return {};
    return {.Failed = true, .ErrorText = "Įrašo „" + oidr_ + "“ nėra."};
  } catch (const StoreError& error) {
    return {.Failed = true, .ErrorText = error.what()};
  }
}

SaveStatus StandardObjectUIO::Save(std::int32_t /*flag*/, const std::string& /*parameter*/) {
  const RecordType* const type = record_type(std::string_view(oidr_).substr(0, kTypeCodeLength));
  if (!record_ || type == nullptr) return {.Failed = true, .ErrorText = "Nėra ką įrašyti: įrašas neperskaitytas."};
  try {
    record_->Update();
    if (const auto id = id_of_key(oidr_)) {
      update_record(*type, *id);
    } else {
      insert_record(*type);
    }
    company_.forget();
    record_->AcceptBatch();
    if (const auto rows = child_rows(*type)) rows->AcceptBatch();
    return {};
  } catch (const StoreError& error) {
    return {.Failed = true, .ErrorText = error.what()};
  }
}

void StandardObjectUIO::CancelUpdate() {
  if (!record_) return;
  if (id_of_key(oidr_)) {
    record_->CancelBatch();
  } else if (const RecordType* const type = record_type(std::string_view(oidr_).substr(0, kTypeCodeLength))) {
    make_new_record(*type);  // nothing is stored to go back to: the record is empty again
  }
}

namespace {

// One open row of the type's fields, and the rows that belong to it.
std::shared_ptr<Recordset> empty_record(const RecordType& type) {
  auto record = std::make_shared<Recordset>();
  for (const RecordField& field : type.fields) {
    record->Fields().Append(field.info.name, field.info.type, field.info.size);
  }
  if (type.rows) record->Fields().Append(type.rows->field, FieldType::kRecordSet);
  record->Open();
  record->AddNew();
  return record;
}

}  // namespace

void StandardObjectUIO::make_new_record(const RecordType& type) {
  record_ = empty_record(type);
  if (type.rows) record_->set_field(type.rows->field, new_child_rows(*type.rows));
  row_version_ = 0;
}

bool StandardObjectUIO::read_record(const RecordType& type, std::int32_t id) {
  std::string columns = "row_version";
  std::vector<FieldInfo> fields = {{"RowVersion", FieldType::kInt32}};
  for (const RecordField& field : type.fields) {
    columns += std::string(", ") + field.column;
    fields.push_back(field.info);
  }
  Database& database = company_.database();
  const auto stored = database.read("SELECT " + columns + " FROM " + type.table + " WHERE id = :p0", fields, {id});
  if (stored->RecordCount() == 0) return false;
  auto record = empty_record(type);
  for (const RecordField& field : type.fields) record->set_field(field.info.name, stored->field(field.info.name));
  if (type.rows) {
    const std::string guid = null_to_text(record->field("GUID"));
    record->set_field(type.rows->field, read_child_rows(database, *type.rows, id, guid));
  }
  record->Update();
  record->AcceptBatch();
  record_ = record;
  row_version_ = stored->field("RowVersion").to_int32();
  if (type.name_field != nullptr) preview_ = null_to_text(record->field(type.name_field));
  return true;
}

// The rows that belong to the record, with what is being typed committed; null when the type has none.
std::shared_ptr<Recordset> StandardObjectUIO::child_rows(const RecordType& type) const {
  if (!type.rows) return nullptr;
  const Variant rows = record_->field(type.rows->field);
  return rows.is_null() ? nullptr : rows.record_set();
}

void StandardObjectUIO::store_rows(const RecordType& type, std::int32_t id) {
  if (const auto rows = child_rows(type)) {
    rows->Update();
    store_child_rows(company_.database(), *type.rows, id, *rows);
  }
}

void StandardObjectUIO::insert_record(const RecordType& type) {
  Database& database = company_.database();
  Transaction transaction(database);
  const std::int32_t id = database.reserve_ids(type.table);
  std::string columns = "id, row_version, changed_by, changed_at";
  std::string binds = ":p0, :p1, :p2, :p3";
  std::vector<Variant> values = {id, 1, user_, change_time()};
  for (const RecordField& field : type.fields) {
    columns += std::string(", ") + field.column;
    binds += ", :p" + std::to_string(values.size());
    values.push_back(record_->field(field.info.name));
  }
  database.execute(std::string("INSERT INTO ") + type.table + " (" + columns + ") VALUES (" + binds + ")", values);
  store_rows(type, id);
  transaction.commit();
  row_version_ = 1;
  oidr_ = object_key(type.object_type, id);
}

void StandardObjectUIO::update_record(const RecordType& type, std::int32_t id) {
  Database& database = company_.database();
  Transaction transaction(database);
  std::string assignments = "row_version = row_version + 1, changed_by = :p0, changed_at = :p1";
  std::vector<Variant> values = {user_, change_time()};
  for (const RecordField& field : type.fields) {
    assignments += std::string(", ") + field.column + " = :p" + std::to_string(values.size());
    values.push_back(record_->field(field.info.name));
  }
  const std::string id_bind = ":p" + std::to_string(values.size());
  values.push_back(id);
  const std::string version_bind = ":p" + std::to_string(values.size());
  values.push_back(row_version_);
  const auto touched = database.execute(std::string("UPDATE ") + type.table + " SET " + assignments +
                                            " WHERE id = " + id_bind + " AND row_version = " + version_bind,
                                        values);
  if (touched == 0) throw_changed_elsewhere(database, type.table, id);
  store_rows(type, id);
  transaction.commit();
  ++row_version_;
}

}  // namespace quor
