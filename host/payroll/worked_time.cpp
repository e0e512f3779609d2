#include "host/payroll/worked_time.h"

#include <algorithm>
#include <map>

#include "host/company/departments.h"
#include "host/company/month_norms.h"
#include "host/company/time_code.h"
#include "host/payroll/closed_month_guard.h"
#include "host/store/object_codes.h"
#include "host/store/tables/table_rows.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

std::vector<TimeCode> read_codes(Database& database) {
  const auto rows = database.read(
      "SELECT code_id, code, code_name FROM indications WHERE indication_code = 'WorkTime' ORDER BY code, code_id",
      {{"ID", FieldType::kInt32}, {"Code", FieldType::kText}, {"Name", FieldType::kText}});
  std::vector<TimeCode> codes;
  for (; !rows->Eof(); rows->MoveNext()) {
    codes.push_back({rows->int32({0}), std::string(rows->text({1})), std::string(rows->text({2}))});
  }
  std::stable_partition(codes.begin(), codes.end(), [](const TimeCode& code) { return code.code == kBasicTimeCode; });
  return codes;
}

std::vector<TimePerson> read_people(Database& database, const std::string& condition,
                                    const std::vector<Variant>& values) {
  const auto rows = database.read(
      "SELECT e.id, e.name FROM employees e WHERE (EXISTS (SELECT 1 FROM positions p WHERE p.employee_id = e.id"
      " AND p.date_from <= :p1 AND (p.date_to IS NULL OR p.date_to >= :p0))"
      " OR EXISTS (SELECT 1 FROM worked_time w WHERE w.month = :p0 AND w.employee_id = e.id))" +
          condition + " ORDER BY e.sort_key, e.id",
      {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}}, values);
  std::vector<TimePerson> people;
  for (; !rows->Eof(); rows->MoveNext()) people.push_back({rows->int32({0}), std::string(rows->text({1}))});
  return people;
}

// The rows of the table `w` bound to the month by :p0.
std::vector<TimeHours> read_hours(Database& database, const Month& month, const std::string& from,
                                  const std::vector<Variant>& values) {
  const auto rows = database.read("SELECT w.employee_id, w.time_code_id, w.day, w.hours FROM worked_time w" + from,
                                  {{"UserID", FieldType::kInt32},
                                   {"Code", FieldType::kInt32},
                                   {"Day", FieldType::kDate},
                                   {"Hours", FieldType::kDouble}},
                                  values);
  std::vector<TimeHours> hours;
  for (; !rows->Eof(); rows->MoveNext()) {
    const Variant day = rows->field("Day");
    const int number = day.is_null() ? 0 : static_cast<int>(day.to_date().serial() - month.first_day().serial()) + 1;
    hours.push_back({{rows->int32({0}), rows->int32({1}), number}, rows->number({3})});
  }
  return hours;
}

Variant day_of(const Month& month, int day) {
  return day == 0 ? Variant(kNull) : Variant(add_days(month.first_day(), day - 1));
}

std::string name_of(Database& database, std::int32_t employee) {
  const auto row = database.read("SELECT name FROM employees WHERE id = :p0", {{"Name", FieldType::kText}}, {employee});
  return row->RecordCount() == 0 ? std::to_string(employee) : std::string(row->text({0}));
}

void require_fit(Database& database, const Month& month, const TimeChange& change) {
  const int days = month.last_day().day();
  if (change.place.day < 0 || change.place.day > days) {
    throw Error(ErrorKind::kIndexOutOfRange,
                "Mėnesyje " + month.text() + " nėra dienos " + std::to_string(change.place.day) + ".");
  }
  const NumberRange& range = change.place.day == 0 ? kHoursOfMonth : kHoursOfDay;
  if (!change.after || range.holds(*change.after)) return;
  throw Error(ErrorKind::kRefused, name_of(database, change.place.employee) + ": valandos „" +
                                       general_text(*change.after) + "“ – leidžiama " + range.text() + ".");
}

// Inside the transaction: what was read still stands.
void require_unchanged(Database& database, const Month& month, const std::vector<TimeChange>& changes) {
  std::map<TimePlace, double> now;
  for (const TimeHours& each : read_hours(database, month, " WHERE w.month = :p0", {month.first_day()})) {
    now[each.place] = each.hours;
  }
  for (const TimeChange& change : changes) {
    const auto found = now.find(change.place);
    const std::optional<double> stored = found == now.end() ? std::nullopt : std::optional(found->second);
    if (stored == change.before) continue;
    throw StoreError(StoreFault::kChangedElsewhere, "Neįrašyta: darbuotojo „" +
                                                        name_of(database, change.place.employee) +
                                                        "“ laiką tuo metu pakeitė kitas vartotojas.");
  }
}

void require_right(Application& application) {
  application.guard().require_right(UserRight::kWrite, kSalaryExtensionType, "keisti darbo laiko");
}

}  // namespace

MonthTime read_month_time(Application& application, const Month& month, std::optional<std::int32_t> department) {
  application.guard().require_view(kSalaryExtensionType);
  Company& company = application.company();
  company.refresh();
  if (department) require_department(company, *department);
  Database& database = company.database();
  const Snapshot snapshot(database);
  MonthTime time{.closed = is_closed(database, month),
                 .norm = norm_hours(database, month),
                 .codes = read_codes(database),
                 .people = {},
                 .hours = {}};
  if (!time.codes.empty() && time.codes.front().code == kBasicTimeCode) time.basic_code = time.codes.front().id;
  std::vector<Variant> values = {month.first_day(), month.last_day()};
  std::string people, hours = " WHERE w.month = :p0";
  if (department) {
    values.emplace_back(*department);
    people = " AND " + in_department("e.department_id", ":p2");
    hours = " JOIN employees e ON e.id = w.employee_id" + hours + " AND " + in_department("e.department_id", ":p1");
  }
  time.people = read_people(database, people, values);
  values.erase(values.begin() + 1);
  time.hours = read_hours(database, month, hours, values);
  return time;
}

void write_month_time(Application& application, const Month& month, const std::vector<TimeChange>& changes) {
  require_right(application);
  Company& company = application.company();
  Database& database = company.database();
  for (const TimeChange& change : changes) require_fit(database, month, change);
  if (changes.empty()) return;
  Transaction transaction(database);
  require_open(database, month);
  require_unchanged(database, month, changes);
  TableRows added("worked_time", {"id", "employee_id", "month", "day", "time_code_id", "hours"});
  for (const TimeChange& change : changes) {
    const auto& [employee, code, day] = change.place;
    const std::string at = " WHERE employee_id = :p0 AND month = :p1 AND COALESCE(day, 0) = :p2 AND time_code_id = :p3";
    const Variant on = day == 0 ? Variant(0) : day_of(month, day);
    if (change.before && !change.after) {
      database.execute("DELETE FROM worked_time" + at, {employee, month.first_day(), on, code});
    } else if (change.before && change.after) {
      database.execute("UPDATE worked_time SET hours = :p4" + at,
                       {employee, month.first_day(), on, code, *change.after});
    } else if (change.after) {
      added.append_row(added.size(), employee, month.first_day(), day_of(month, day), code, *change.after);
    }
  }
  if (added.size() > 0) added.insert_with_ids(database);
  transaction.commit();
  company.forget();
}

void delete_month_time(Application& application, const Month& month) {
  application.guard().require_right(UserRight::kDelete, kSalaryExtensionType, "naikinti darbo laiko");
  Database& database = application.company().database();
  Transaction transaction(database);
  require_open(database, month);
  database.execute("DELETE FROM worked_time WHERE month = :p0", {month.first_day()});
  transaction.commit();
  application.company().forget();
}

}  // namespace quor
