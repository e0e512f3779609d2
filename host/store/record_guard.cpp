#include "host/store/record_guard.h"

#include <ctime>

namespace quor {

std::string change_time() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y.%m.%d %H:%M", &local);
  return text;
}

void throw_changed_elsewhere(Database& database, std::string_view table, std::int32_t id) {
  const auto record = database.read("SELECT changed_by, changed_at FROM " + std::string(table) + " WHERE id = :p0",
                                    {{"changed_by", FieldType::kText}, {"changed_at", FieldType::kText}}, {id});
  if (record->RecordCount() == 0) {
    throw StoreError(StoreFault::kChangedElsewhere, "Įrašas panaikintas kito vartotojo.");
  }
  throw StoreError(StoreFault::kChangedElsewhere,
                   "Įrašą tuo metu pakeitė kitas vartotojas: " + null_to_text(record->field("changed_by")) + ", " +
                       null_to_text(record->field("changed_at")) + ".");
}

}  // namespace quor
