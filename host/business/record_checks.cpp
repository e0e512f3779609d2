#include "host/business/record_checks.h"

#include <string>

namespace quor {

namespace {

[[noreturn]] void refuse(const std::string& text) { throw StoreError(StoreFault::kFailed, text); }

bool is_there(Database& database, const std::string& from_where, const std::vector<Variant>& values) {
  return database.read("SELECT id FROM " + from_where, {{"ID", FieldType::kInt32}}, values)->RecordCount() > 0;
}

}  // namespace

Variant stored_value(Database& database, const char* table, const RecordField& field, std::int32_t id,
                     const Variant& value) {
  const std::string name = "„" + field.info.name + "“";
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

}  // namespace quor
