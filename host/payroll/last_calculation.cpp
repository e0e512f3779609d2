#include "host/payroll/last_calculation.h"

#include "host/store/record_guard.h"

namespace quor {

MonthStamp month_stamp(Database& database, const Month& month) {
  const auto row = database.read("SELECT COUNT(*), COALESCE(MAX(id), 0) FROM documents WHERE month = :p0",
                                 {{"Count", FieldType::kInt32}, {"Newest", FieldType::kInt32}}, {month.first_day()});
  return {database.pay_inputs_count(), row->int32({0}), row->int32({1})};
}

LastCalculation last_calculation(Database& database, const Month& month) {
  const auto last = database.read(
      "SELECT CASE WHEN r.pay_inputs = c.value THEN 1 ELSE 0 END FROM month_runs r JOIN counters c"
      " ON c.name = 'pay_inputs' WHERE r.month = :p0",
      {{"OfToday", FieldType::kInt32}}, {month.first_day()});
  if (last->RecordCount() == 0) return LastCalculation::kNone;
  return last->int32({0}) != 0 ? LastCalculation::kOfToday : LastCalculation::kEarlier;
}

bool note_last_calculation(Database& database, const Month& month, std::int64_t inputs, const std::string& user) {
  if (last_calculation(database, month) == LastCalculation::kOfToday) return true;
  Transaction transaction(database, Writes::kOther);
  if (database.pay_inputs_count() != inputs) return false;
  database.execute(
      "INSERT INTO month_runs (month, pay_inputs, calculated_by, calculated_at)"
      " SELECT :p0, value, :p1, :p2 FROM counters WHERE name = 'pay_inputs'"
      " ON CONFLICT (month) DO UPDATE SET pay_inputs = excluded.pay_inputs, calculated_by = excluded.calculated_by,"
      " calculated_at = excluded.calculated_at",
      {month.first_day(), user, change_time()});
  transaction.commit();
  return true;
}

std::string last_calculated(Database& database, const Month& month) {
  const auto run = database.read("SELECT calculated_at, calculated_by FROM month_runs WHERE month = :p0",
                                 {{"At", FieldType::kText}, {"By", FieldType::kText}}, {month.first_day()});
  if (run->RecordCount() == 0 || run->is_null({0})) return "";
  return std::string(run->text({0})) + ", " + std::string(run->text({1}));
}

bool was_calculated(Database& database, const Month& month) {
  if (last_calculation(database, month) != LastCalculation::kNone) return true;
  for (const char* table : {"documents", "month_faults"}) {
    const auto any = database.read(std::string("SELECT month FROM ") + table + " WHERE month = :p0 LIMIT 1",
                                   {{"Month", FieldType::kDate}}, {month.first_day()});
    if (any->RecordCount() > 0) return true;
  }
  return false;
}

}  // namespace quor
