#include "host/company/office_name.h"

#include "host/store/tables/column_values.h"

namespace quor {

namespace {

constexpr StoredColumn kOfficeName{"name", ColumnKind::kText, "įstaigos pavadinimas", Presence::kRequired};

}  // namespace

std::string office_name(Database& database) {
  return null_to_text(database.read("SELECT name FROM company", {{"Name", FieldType::kText}})->field("Name"));
}

void rename_office(RightsGuard& guard, const std::string& read, const std::string& name) {
  guard.require_administrator("keisti įstaigos pavadinimo");
  if (name.find_first_not_of(' ') == std::string::npos) {
    throw StoreError(StoreFault::kRefused, "Neįrašytas įstaigos pavadinimas.");
  }
  if (const std::string fault = value_fault(kOfficeName, name, name); !fault.empty()) {
    throw StoreError(StoreFault::kRefused, "Įstaigos pavadinimas: " + fault + ".");
  }
  Database& database = guard.company().database();
  Transaction transaction(database, Writes::kOther);
  if (const std::string stored = office_name(database); stored != read) {
    throw StoreError(StoreFault::kChangedElsewhere,
                     "Įstaigos pavadinimą tuo metu pakeitė kitas vartotojas: dabar „" + stored + "“.");
  }
  database.execute("UPDATE company SET name = :p0", {name});
  transaction.commit();
  guard.company().forget();
}

}  // namespace quor
