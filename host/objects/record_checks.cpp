#include "host/objects/record_checks.h"

#include <algorithm>
#include <string>

#include "host/store/row_rules.h"
#include "host/store/stored_columns.h"

namespace quor {

namespace {

[[noreturn]] void refuse(const std::string& text) { throw StoreError(StoreFault::kRefused, text); }

// The field in the words of people.
std::string words(const char* table, const RecordField& field) {
  const std::string_view caption = stored_column(table, field.column).caption;
  return "„" + (caption.empty() ? field.info.name : std::string(caption)) + "“";
}

bool is_there(Database& database, const std::string& from_where, const std::vector<Variant>& values) {
  return database.read("SELECT id FROM " + from_where, {{"ID", FieldType::kInt32}}, values)->RecordCount() > 0;
}

}  // namespace

Variant stored_value(Database& database, const char* table, const RecordField& field, std::int32_t id,
                     const Variant& value) {
  const std::string name = words(table, field);
  const bool none = value.is_null() || (field.references != nullptr && value.to_int32() == 0);
  if (none && field.required) refuse("Neužpildytas laukas " + name + ".");
  if (none) return kNull;
  if (field.references != nullptr && !is_there(database, std::string(field.references) + " WHERE id = :p0", {value})) {
    refuse("Laukas " + name + " rodo į įrašą, kurio nėra: „" + value.to_text() + "“.");
  }
  const std::string column(field.column);
  if (field.unique && is_there(database, table + (" WHERE " + column) + " = :p0 AND id <> :p1", {value, id})) {
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
    const std::string fault = value_fault(stored_column(table, fields[at].column), value, null_to_text(value));
    if (!fault.empty()) refuse("Laukas " + words(table, fields[at]) + ": " + fault + ".");
  }
  const auto place = [&](std::string_view column) {
    return static_cast<std::size_t>(
        std::find_if(fields.begin(), fields.end(), [&](const auto& field) { return field.column == column; }) -
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
    if (fault) refuse("Laukas " + words(table, fields[place(fault->column)]) + ": " + fault->text + ".");
  }
}

}  // namespace quor
