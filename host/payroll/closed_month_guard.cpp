#include "host/payroll/closed_month_guard.h"

#include "platform/data/error.h"

namespace quor {

bool is_closed(Database& database, const Month& month) {
  return database
             .read("SELECT month FROM closed_months WHERE month = :p0", {{"Month", FieldType::kDate}},
                   {month.first_day()})
             ->RecordCount() > 0;
}

void require_open(Database& database, const Month& month) {
  if (is_closed(database, month)) {
    throw Error(ErrorKind::kRefused, "Mėnuo " + month.text() + " uždarytas: jo perskaičiuoti negalima.");
  }
}

}  // namespace quor
