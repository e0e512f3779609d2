// Fields by name and by handle, and the rows of a batch: the small classes around Recordset.
#include <utility>

#include "platform/data/error.h"
#include "platform/data/filter.h"
#include "platform/data/record_store.h"
#include "platform/data/recordset.h"

namespace quor {
namespace {

Recordset& existing(Recordset* owner) {
  if (owner == nullptr) throw Error(ErrorKind::kObjectMissing, "Nėra įrašų rinkinio.");
  return *owner;
}

}  // namespace

// ---- Recordset

quor::Fields Recordset::Fields() { return quor::Fields(this); }

std::size_t Recordset::field_count() const { return store_->columns().size(); }

const FieldInfo& Recordset::field_info(FieldHandle field) const {
  if (field.index >= field_count()) {
    throw Error(ErrorKind::kNoSuchField, "Nėra lauko nr. " + std::to_string(field.index) + ".");
  }
  return store_->columns()[field.index].info;
}

FieldHandle Recordset::handle(std::string_view name) const { return {find_column(store_->columns(), name)}; }

// ---- Fields

Recordset& Fields::owner() const { return existing(owner_); }

std::size_t Fields::count() const { return owner().field_count(); }

Field Fields::operator[](std::string_view name) const { return Field(owner_, owner().handle(name)); }

void Fields::Append(std::string name, FieldType type, std::size_t size) {
  if (owner().is_open()) {
    throw Error(ErrorKind::kAlreadyOpen, "Įrašų rinkinys jau atidarytas, lauko „" + name + "“ pridėti negalima.");
  }
  owner().store_->append_field({std::move(name), type, size});
}

// ---- Field

Recordset& Field::owner() const { return existing(owner_); }

const std::string& Field::name() const { return owner().field_info(handle_).name; }

FieldType Field::type() const { return owner().field_info(handle_).type; }

Variant Field::Value() const { return owner().field(handle_); }

void Field::Value(const Variant& value) { owner().set_field(handle_, value); }

// ---- RowChange

RowState RowChange::state() const { return store_.state(row_); }

Variant RowChange::current(FieldHandle field) const { return store_.columns().at(field.index).value(row_); }

Variant RowChange::base(FieldHandle field) const { return store_.base_value(row_, field.index); }

}  // namespace quor
