#include "host/objects/standard_object_uio.h"

#include <algorithm>

#include "host/company/closed_reach.h"
#include "host/company/guid.h"
#include "host/company/rights.h"
#include "host/company/tariff_gaps.h"
#include "host/objects/child_rows.h"
#include "host/objects/record_checks.h"
#include "host/objects/record_rules.h"
#include "host/store/object_codes.h"
#include "host/store/record_guard.h"
#include "host/store/sort_key.h"
#include "host/store/tables/column_values.h"
#include "platform/data/error.h"

namespace quor {

namespace {

SaveStatus failed(const std::string& text) { return {.Failed = true, .ErrorText = text}; }

// One open row of the type's fields; the field for the rows that belong to it is null.
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

StandardObjectUIO::StandardObjectUIO(QuorApplication& application, Company& company, std::string user,
                                     std::string object_type)
    : application_(application),
      company_(company),
      bo_(application.NewMainBO()),
      user_(std::move(user)),
      object_type_(std::move(object_type)),
      type_(record_type(object_type_)),
      otype_(object_type_) {}

std::string StandardObjectUIO::GetGUID() { return new_guid(); }

quor::Fields StandardObjectUIO::Fields() { return record_ ? record_->Fields() : quor::Fields(); }

// The standard object has no named data and methods of its own: that is what the plug-in's objects add.
MethodResult StandardObjectUIO::Properties(const std::string& /*name*/, const std::string& /*parameter*/) { return {}; }
MethodResult StandardObjectUIO::Methods(const std::string& /*name*/, const Parameters& /*parameters*/) { return {}; }

SaveStatus StandardObjectUIO::Read() {
  if (type_ == nullptr) return failed("Nežinomas objekto tipas: „" + object_type_ + "“.");
  try {
    if (!carries_object(oidr_)) {
      if (const std::string text = refusal_to_begin(); !text.empty()) return failed(text);
      make_new_record();
      preview_.clear();
    } else if (!oidr_.starts_with(object_type_)) {
      return failed("Įrašas „" + oidr_ + "“ kito tipo: laukiama „" + object_type_ + "“.");
    } else {
      if (const std::string text = refusal_to_view(); !text.empty()) return failed(text);
      const auto id = id_of_key(oidr_);
      if (!id || !read_record(*id)) return {.Failed = true, .ErrorText = "Įrašo „" + oidr_ + "“ nėra.", .Gone = true};
    }
    read_oidr_ = oidr_;
    return {};
  } catch (const StoreError& error) {
    return failed(error.what());
  } catch (const Error& error) {  // what is stored does not fit its field
    return failed(error.what());
  }
}

SaveStatus StandardObjectUIO::Save(std::int32_t /*flag*/, const std::string& /*parameter*/) {
  if (!is_read()) return failed("Nėra ką įrašyti: įrašas neperskaitytas.");
  try {
    if (const std::string text = refusal(); !text.empty()) return failed(text);
    record_->Filter("");  // commits what is being typed and stands on the record
    check_values();
    write_as_agreed(application_, [this](const std::vector<Month>& agreed) {
      if (id_) return update_record(*id_, agreed);
      id_ = insert_record(agreed);
      oidr_ = read_oidr_ = object_key(object_type_, *id_);
    });
    company_.forget();
    record_->AcceptBatch();
    if (const auto rows = child_rows()) rows->AcceptBatch();
    show_name();
    return {};
  } catch (const StoreError& error) {
    changed_elsewhere_ = error.fault() == StoreFault::kChangedElsewhere;
    return failed(error.what());
  }
}

void StandardObjectUIO::CancelUpdate() {
  if (!record_) return;
  if (!id_) {
    make_new_record();  // nothing is stored to go back to
    return;
  }
  // What was read is no longer what is stored: another save from it would be refused again.
  if (changed_elsewhere_) {
    try {
      if (read_record(*id_)) return;
    } catch (const StoreError&) {  // then back to what was read
    } catch (const Error&) {
    }
  }
  record_->CancelBatch();
}

bool StandardObjectUIO::is_read() const { return record_ && (id_ ? oidr_ == read_oidr_ : !carries_object(oidr_)); }

// Why the user may not store the record; "" when nothing is against it.
std::string StandardObjectUIO::refusal() const {
  if (!id_) return refusal_to_create();
  return may(UserRight::kWrite) ? "" : refused("keisti");
}

// A new record is begun by whoever may store it: he is told before he has typed. An object of the salary extension
// without a record is its engine, which computes from what the user may view.
std::string StandardObjectUIO::refusal_to_begin() const {
  return object_type_ == kSalaryExtensionType ? refusal_to_view() : refusal_to_create();
}

// The editors' write buttons ask for the right to write, a new record's too.
std::string StandardObjectUIO::refusal_to_create() const {
  if (!may(UserRight::kCreate)) return refused("kurti");
  return may(UserRight::kWrite) ? "" : refused("keisti");
}

std::string StandardObjectUIO::refusal_to_view() const {
  if (may_view(application_, viewed_with(object_type_))) return "";
  return refusal_text(company_, user_, std::string("peržiūrėti ") + viewed_plural(object_type_));
}

bool StandardObjectUIO::may(UserRight right) const { return application_.HasRight(right, object_type_, 0); }

std::string StandardObjectUIO::refused(const char* verb) const {
  return refusal_text(company_, user_, std::string(verb) + " " + type_->plural);
}

void StandardObjectUIO::make_new_record() {
  record_ = empty_record(*type_);
  if (type_->rows) record_->set_field(type_->rows->field, new_child_rows(*type_->rows));
  id_.reset();
  row_version_ = 0;
}

bool StandardObjectUIO::read_record(std::int32_t id) {
  std::string columns = "row_version";
  std::vector<FieldInfo> fields = {{"RowVersion", FieldType::kInt32}};
  for (const RecordField& field : type_->fields) {
    columns += ", " + field.column();
    fields.push_back(field.info);
  }
  Database& database = company_.database();
  const auto stored = database.read(
      "SELECT " + columns + " FROM " + type_->table + " WHERE id = :p0" + type_->and_only(), fields, {id});
  if (stored->RecordCount() == 0) return false;
  auto record = empty_record(*type_);
  for (const RecordField& field : type_->fields) record->set_field(field.info.name, stored->field(field.info.name));
  if (type_->rows) {
    const std::string guid = has_guid(*type_) ? null_to_text(record->field("GUID")) : "";
    record->set_field(type_->rows->field, read_child_rows(database, *type_->rows, id, guid));
  }
  record->Update();
  record->AcceptBatch();
  record_ = record;
  id_ = id;
  row_version_ = stored->field("RowVersion").to_int32();
  changed_elsewhere_ = false;
  show_name();
  return true;
}

void StandardObjectUIO::show_name() {
  if (type_->name_field != nullptr) preview_ = null_to_text(record_->field(type_->name_field));
}

// The rows that belong to the record, with what is being typed committed; null when the type has none.
std::shared_ptr<Recordset> StandardObjectUIO::child_rows() const {
  if (!type_->rows) return nullptr;
  const Variant rows = record_->field(type_->rows->field);
  return rows.is_null() ? nullptr : rows.record_set();
}

void StandardObjectUIO::check_values() const {
  std::vector<FieldHandle> handles;
  for (std::size_t i = 0; i < type_->fields.size(); ++i) handles.push_back({i});
  record_->for_each_change(
      [&](const RowChange& row) { refuse_unfit_values(type_->table, type_->fields, handles, row); });
  check_name();
}

// A blank has no place in the alphabet.
void StandardObjectUIO::check_name() const {
  if (!stored_table(type_->table).named) return;
  const std::string name = null_to_text(record_->field(type_->name_field));
  if (name.find_first_not_of(' ') != std::string::npos) return;
  throw StoreError(StoreFault::kRefused,
                   "Neužpildytas laukas „" + std::string(stored_column(type_->table, "name").caption) + "“.");
}

// Once the record stands in the open transaction: a version of the settings that names a tariff or its own date anew
// must find the tariff's value.
void StandardObjectUIO::check_tariffs(std::int32_t id) const {
  if (object_type_ != kSettingsType) return;
  bool touched = false;
  record_->for_each_change([&](const RowChange& row) {
    for (const char* name : {"DateFrom", "BaseMonthTariffID", "BaseHourTariffID"}) {
      const FieldHandle field = record_->handle(name);
      touched = touched || !same_value(row.base(field), row.current(field));
    }
  });
  if (!touched) return;
  for (const TariffGap& gap : tariff_gaps(company_.database())) {
    if (gap.settings == id) throw StoreError(StoreFault::kRefused, "Nustatymų " + gap.text + ".");
  }
}

// All changed rows, whatever filter an editor has left and wherever it has left the cursor.
void StandardObjectUIO::store_rows(std::int32_t id) {
  if (const auto rows = child_rows()) {
    if (!rows->Bof() && !rows->Eof()) rows->Update();
    store_child_rows(company_.database(), *type_->rows, id, *rows);
  }
}

// By which its rows of dates are known.
const char* StandardObjectUIO::watched_table() const { return type_->rows ? type_->rows->table : type_->table; }

void StandardObjectUIO::append_values(std::int32_t id, std::vector<ColumnValue>& values) const {
  for (const RecordField& field : type_->fields) {
    values.push_back(
        {field.column(), stored_value(company_.database(), type_->table, field, id, record_->field(field.info.name))});
  }
  if (!stored_table(type_->table).named) return;
  const auto name = std::find_if(values.begin(), values.end(), [](const auto& each) { return each.column == "name"; });
  values.push_back({"sort_key", lithuanian_sort_key(null_to_text(name->value))});
}

std::int32_t StandardObjectUIO::insert_record(const std::vector<Month>& agreed) {
  Database& database = company_.database();
  Transaction transaction(database);
  const std::int32_t id = database.reserve_ids(type_->table);
  ClosedReach reach(database, watched_table(), id);
  RecordRules rules(database, *type_);
  std::vector<ColumnValue> values = program_values(database, *type_);
  values.push_back({"id", id});
  append_values(id, values);
  insert_row(database, type_->table, values, user_);
  store_rows(id);
  check_tariffs(id);
  rules.require(id);
  reach.require(agreed);
  transaction.commit();
  row_version_ = 1;
  return id;
}

void StandardObjectUIO::update_record(std::int32_t id, const std::vector<Month>& agreed) {
  Database& database = company_.database();
  Transaction transaction(database);
  ClosedReach reach(database, watched_table(), id);
  RecordRules rules(database, *type_);
  std::vector<ColumnValue> values;
  append_values(id, values);
  if (!update_row(database, type_->table, id, values, user_, row_version_)) {
    throw_changed_elsewhere(database, type_->table, id);
  }
  store_rows(id);
  check_tariffs(id);
  rules.require(id);
  reach.require(agreed);
  transaction.commit();
  ++row_version_;
}

}  // namespace quor
