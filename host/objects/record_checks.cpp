#include "host/objects/record_checks.h"

#include <algorithm>
#include <string>

#include "host/store/tables/column_values.h"
#include "host/store/tables/row_rules.h"

namespace quor {

namespace {

[[noreturn]] void refuse(const std::string& text) { throw StoreError(StoreFault::kRefused, text); }

// The field in the words of people.
std::string words(const RecordField& field) { return "„" + std::string(field.stored->caption) + "“"; }

bool is_there(Database& database, const std::string& from_where, const std::vector<Variant>& values) {
  return database.read("SELECT id FROM " + from_where, {{"ID", FieldType::kInt32}}, values)->RecordCount() > 0;
}

}  // namespace

Variant stored_value(Database& database, const char* table, const RecordField& field, std::int32_t id,
                     const Variant& value) {
  const std::string name = words(field);
  const bool refers = !field.stored->references.empty();
  const bool none = value.is_null() || (refers && value.to_int32() == 0);
  if (none && field.stored->required()) refuse("Neužpildytas laukas " + name + ".");
  if (none) return kNull;
  if (refers && !is_there(database, std::string(field.stored->references) + " WHERE id = :p0", {value})) {
    refuse("Laukas " + name + " rodo į įrašą, kurio nėra: „" + value.to_text() + "“.");
  }
  if (field.unique && is_there(database, table + (" WHERE " + field.column()) + " = :p0 AND id <> :p1", {value, id})) {
    refuse("Lauko " + name + " reikšmę „" + value.to_text() + "“ jau turi kitas įrašas.");
  }
  return value;
}

void refuse_unfit_values(const char* table, std::span<const RecordField> fields, std::span<const FieldHandle> handles,
                         const RowChange& row) {
  const auto changed = [&](std::size_t at) {
    return row.state() == RowState::kAdded || !same_value(row.base(handles[at]), row.current(handles[at]));
  };
  for (std::size_t at = 0; at < fields.size(); ++at) {
    if (!changed(at)) continue;
    const Variant value = row.current(handles[at]);
    const std::string fault = value_fault(*fields[at].stored, value, null_to_text(value));
    if (!fault.empty()) refuse("Laukas " + words(fields[at]) + ": " + fault + ".");
  }
  const auto place = [&](std::string_view column) {
    return static_cast<std::size_t>(
        std::find_if(fields.begin(), fields.end(), [&](const auto& field) { return field.stored->name == column; }) -
        fields.begin());
  };
  for (const RowRule& rule : row_rules()) {
    if (rule.table != table) continue;
    bool touched = false;
    std::vector<Variant> values;
    for (const std::string_view column : rule.columns) {
      touched = touched || changed(place(column));
      values.push_back(row.current(handles[place(column)]));
    }
    const auto fault = touched ? rule.broken(values) : std::nullopt;
    if (fault) refuse("Laukas " + words(fields[place(fault->column)]) + ": " + fault->text + ".");
  }
}

}  // namespace quor
