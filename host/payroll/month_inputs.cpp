#include "host/payroll/month_inputs.h"

#include <algorithm>

#include "host/company/departments.h"
#include "host/company/month_norms.h"
#include "host/company/time_code.h"
#include "host/payroll/month_settings.h"
#include "host/payroll/value_faults.h"
#include "host/store/bound_list.h"

namespace quor {

namespace {

// Dates that a person's pay hangs on are read as their serials: what no calendar has is a fault, not an end of reading.
const std::vector<FieldInfo> kPositionFields = {{"UserID", FieldType::kInt32}, {"Name", FieldType::kText},
                                                {"ID", FieldType::kInt32},     {"Key", FieldType::kText},
                                                {"Share", FieldType::kDouble}, {"DateFrom", FieldType::kDouble},
                                                {"DateTo", FieldType::kDouble}};

const std::vector<FieldInfo> kWorkedFields = {{"UserID", FieldType::kInt32},
                                              {"TimeCode", FieldType::kInt32},
                                              {"Hours", FieldType::kDouble},
                                              {"Day", FieldType::kDouble}};

const std::vector<FieldInfo> kChargeFields = {{"UserID", FieldType::kInt32},    {"ID", FieldType::kInt32},
                                              {"SumA", FieldType::kDouble},     {"Percentage", FieldType::kDouble},
                                              {"ExtraOID", FieldType::kText},   {"SalaryCode", FieldType::kInt32},
                                              {"DateFrom", FieldType::kDouble}, {"DateTo", FieldType::kDouble}};

const std::vector<FieldInfo> kServiceFields = {{"UserID", FieldType::kInt32},
                                               {"Date", FieldType::kDouble},
                                               {"Years", FieldType::kDouble},
                                               {"Months", FieldType::kDouble}};

// The first fault stays.
void note(PersonInput& person, std::string fault) {
  if (person.fault.empty()) person.fault = std::move(fault);
}

void note_date(PersonInput& person, const char* what, const Recordset& rows, FieldHandle field) {
  if (!rows.is_null(field)) note(person, date_fault(what, rows.number(field)));
}

// More people are found faster among everybody.
constexpr std::size_t kFewPeople = 200;

bool few(const Whom& whom) { return !whom.people.empty() && whom.people.size() <= kFewPeople; }

// The condition that rows are of the few; "" for more people.
std::string and_of_few(const Whom& whom, const char* employee, std::vector<Variant>& values) {
  return few(whom) ? std::string(" AND ") + employee + " IN (" + bound_list(whom.people, values) + ")" : "";
}

std::vector<PersonInput> read_people(Database& database, const Month& month, const Whom& whom) {
  std::string sql =
      "SELECT e.id, e.name, p.id, p.contract_guid || p.norm_guid, p.share, p.date_from, p.date_to FROM positions p"
      " JOIN employees e ON e.id = p.employee_id"
      " WHERE p.date_from <= :p0 AND (p.date_to IS NULL OR p.date_to >= :p1)";
  std::vector<Variant> values = {month.last_day(), month.first_day()};
  if (whom.department) {
    sql += " AND " + in_department("e.department_id", ":p2");
    values.emplace_back(*whom.department);
  }
  sql += and_of_few(whom, "e.id", values);
  const auto rows = database.read(sql + " ORDER BY e.id, p.date_from, p.id", kPositionFields, values);
  const FieldHandle user = rows->handle("UserID"), name = rows->handle("Name"), id = rows->handle("ID"),
                    key = rows->handle("Key"), share = rows->handle("Share"), from = rows->handle("DateFrom"),
                    to = rows->handle("DateTo");
  const double first_day = month.first_day().serial(), last_day = month.last_day().serial();
  std::vector<PersonInput> people;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (people.empty() || people.back().employee != rows->int32(user)) {
      people.push_back({rows->int32(user), std::string(rows->text(name))});
    }
    PersonInput& person = people.back();
    note(person, value_fault("etato dalis", rows->number(share), kShare));
    note_date(person, "pareigų pradžia", *rows, from);
    note_date(person, "pareigų pabaiga", *rows, to);
    const double last = rows->is_null(to) ? last_day : std::min(last_day, rows->number(to));
    person.positions.push_back({rows->int32(id), std::string(rows->text(key)), rows->number(share),
                                Date::from_serial(std::max(first_day, rows->number(from))), Date::from_serial(last)});
  }
  return people;
}

// Both are by employee: each row finds its person by going on from the one before.
template <typename Add>
void give_to_people(std::vector<PersonInput>& people, Recordset& rows, const Add& add) {
  const FieldHandle user = rows.handle("UserID");
  auto person = people.begin();
  for (; !rows.Eof(); rows.MoveNext()) {
    while (person != people.end() && person->employee < rows.int32(user)) ++person;
    if (person == people.end()) return;
    if (person->employee == rows.int32(user)) add(*person);
  }
}

void read_worked_time(Database& database, const Month& month, const Whom& whom, std::vector<PersonInput>& people) {
  std::vector<Variant> values = {month.first_day()};
  const std::string of_few = and_of_few(whom, "employee_id", values);
  const auto rows = database.read("SELECT employee_id, time_code_id, hours, day FROM worked_time WHERE month = :p0" +
                                      of_few + " ORDER BY employee_id, id",
                                  kWorkedFields, values);
  const FieldHandle code = rows->handle("TimeCode"), hours = rows->handle("Hours"), day = rows->handle("Day");
  const NumberRange days{month.first_day().serial(), month.last_day().serial()};
  give_to_people(people, *rows, [&](PersonInput& person) {
    WorkedTime worked{rows->int32(code), rows->number(hours), std::nullopt};
    if (rows->is_null(day)) {
      note(person, value_fault("mėnesio valandos", worked.hours, kHoursOfMonth));
    } else if (days.holds(rows->number(day))) {
      worked.day = Date::from_serial(rows->number(day));
      note(person, value_fault("dienos " + date_text(*worked.day) + " valandos", worked.hours, kHoursOfDay));
    } else {
      note(person, "darbo laiko diena ne mėnesio " + month.text());
    }
    person.worked.push_back(worked);
  });
}

void read_charges(Database& database, const Month& month, const Whom& whom, std::vector<PersonInput>& people) {
  std::vector<Variant> values = {month.last_day(), month.first_day()};
  const std::string of_few = and_of_few(whom, "employee_id", values);
  const auto rows = database.read(
      "SELECT employee_id, id, sum_a, percentage, salary_extra_oid, salary_code_id, date_from, date_to"
      " FROM extra_charges"
      " WHERE (date_from IS NULL OR date_from <= :p0) AND (date_to IS NULL OR date_to >= :p1)" +
          of_few + " ORDER BY employee_id, id",
      kChargeFields, values);
  const FieldHandle id = rows->handle("ID"), sum = rows->handle("SumA"), percentage = rows->handle("Percentage"),
                    extra = rows->handle("ExtraOID"), code = rows->handle("SalaryCode"),
                    from = rows->handle("DateFrom"), to = rows->handle("DateTo");
  give_to_people(people, *rows, [&](PersonInput& person) {
    if (rows->number(sum) != 0) note(person, value_fault("priedo suma", rows->number(sum), kChargeSum));
    note(person, value_fault("priedo procentas", rows->number(percentage), kPercentage));
    note_date(person, "priedo pradžia", *rows, from);
    note_date(person, "priedo pabaiga", *rows, to);
    person.charges.push_back({rows->int32(id), rows->number(sum), rows->number(percentage),
                              std::string(rows->text(extra)), rows->int32(code)});
  });
}

// Of the lengths of service, which the engine reads itself, those that cannot be right.
void find_impossible_service(Database& database, const Whom& whom, std::vector<PersonInput>& people) {
  std::vector<Variant> values = {static_cast<std::int32_t>(kServiceYears.low),
                                 static_cast<std::int32_t>(kServiceYears.high),
                                 static_cast<std::int32_t>(kServiceMonths.low),
                                 static_cast<std::int32_t>(kServiceMonths.high),
                                 first_stored_date(),
                                 last_stored_date()};
  const std::string of_few = and_of_few(whom, "employee_id", values);
  const auto rows = database.read(
      "SELECT employee_id, date_experience, experience_years, experience_months FROM experience"
      " WHERE (experience_years < :p0 OR experience_years > :p1 OR experience_months < :p2 OR experience_months > :p3"
      " OR date_experience < :p4 OR date_experience > :p5)" +
          of_few + " ORDER BY employee_id",
      kServiceFields, values);
  const FieldHandle date{1}, years{2}, months{3};
  give_to_people(people, *rows, [&](PersonInput& person) {
    note_date(person, "tarnybos stažo data", *rows, date);
    note(person, value_fault("tarnybos stažo metai", rows->number(years), kServiceYears));
    note(person, value_fault("tarnybos stažo mėnesiai", rows->number(months), kServiceMonths));
  });
}

std::int32_t basic_code_of(Database& database) {
  const auto code = database.read("SELECT code_id FROM indications WHERE indication_code = :p0 AND code = :p1",
                                  {{"CodeID", FieldType::kInt32}}, {kWorkTime, kBasicTimeCode});
  return code->RecordCount() > 0 ? code->field("CodeID").to_int32() : 0;
}

std::shared_ptr<Recordset> read_alphabet(Database& database, const Whom& whom) {
  std::vector<Variant> values;
  const std::string of_few = and_of_few(whom, "id", values);
  return database.read("SELECT id FROM employees WHERE 1 = 1" + of_few + " ORDER BY sort_key, id",
                       {{"ID", FieldType::kInt32}}, values);
}

// Of everybody who was read.
void leave_chosen(std::vector<PersonInput>& people, const Whom& whom) {
  if (whom.people.empty()) return;
  const std::set<std::int32_t> chosen(whom.people.begin(), whom.people.end());
  std::erase_if(people, [&](const PersonInput& person) { return !chosen.contains(person.employee); });
}

}  // namespace

MonthInputs read_month_inputs(Company& company, const Month& month, const Whom& whom) {
  Database& database = company.database();
  if (whom.department) require_department(company, *whom.department);
  MonthSettings settings = read_month_settings(database, month);
  MonthInputs inputs{.count = database.pay_inputs_count(),
                     .norm_hours = norm_hours(database, month),
                     .basic_time_code = basic_code_of(database),
                     .surcharge_codes = std::move(settings.surcharge_codes),
                     .fault = std::move(settings.fault),
                     .people = read_people(database, month, whom),
                     .alphabet = read_alphabet(database, whom),
                     .few = few(whom) ? std::make_shared<requests::RowsOfPeople>(database, whom.people) : nullptr};
  leave_chosen(inputs.people, whom);
  read_worked_time(database, month, whom, inputs.people);
  read_charges(database, month, whom, inputs.people);
  find_impossible_service(database, whom, inputs.people);
  if (inputs.fault.empty())
    inputs.fault = value_fault("mėnesio " + month.text() + " norma", inputs.norm_hours, kMonthNorm);
  return inputs;
}

}  // namespace quor
