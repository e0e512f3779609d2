#include "host/payroll/closed_months.h"

#include "host/store/record_guard.h"
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
    throw Error(ErrorKind::kAlreadyOpen, "Mėnuo " + month.text() + " uždarytas: jo perskaičiuoti negalima.");
  }
}

void close_month(Database& database, const Month& month, const std::string& user) {
  Transaction transaction(database, Writes::kOther);
  if (is_closed(database, month)) {
    throw Error(ErrorKind::kAlreadyOpen, "Mėnuo " + month.text() + " jau uždarytas.");
  }
  database.execute("INSERT INTO closed_months (month, closed_by, closed_at) VALUES (:p0, :p1, :p2)",
                   {month.first_day(), user, change_time()});
  transaction.commit();
}

void reopen_month(Database& database, const Month& month) {
  Transaction transaction(database, Writes::kOther);
  if (database.execute("DELETE FROM closed_months WHERE month = :p0", {month.first_day()}) == 0) {
    throw Error(ErrorKind::kAlreadyOpen, "Mėnuo " + month.text() + " nėra uždarytas.");
  }
  transaction.commit();
}

}  // namespace quor
