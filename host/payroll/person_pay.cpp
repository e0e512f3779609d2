#include "host/payroll/person_pay.h"

#include "host/payroll/closed_month_guard.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

using enum FieldType;

// The code's name beside it; the number alone of a code that is gone.
std::string time_code_text(const std::string& column) {
  return "COALESCE((SELECT i.code || '  ' || i.code_name FROM indications i WHERE i.indication_code = 'WorkTime' AND"
         " i.code_id = " +
         column + "), CAST(" + column + " AS TEXT))";
}

std::vector<WorkedHours> read_worked(Database& database, std::int32_t employee, const Month& month) {
  const auto rows = database.read("SELECT w.day, " + time_code_text("w.time_code_id") +
                                      ", w.hours FROM worked_time w WHERE w.employee_id = :p0 AND w.month = :p1"
                                      " ORDER BY COALESCE(w.day, 0), w.time_code_id",
                                  {{"Day", kDate}, {"Code", kText}, {"Hours", kDouble}}, {employee, month.first_day()});
  std::vector<WorkedHours> worked;
  for (; !rows->Eof(); rows->MoveNext()) {
    worked.push_back({rows->is_null({0}) ? std::nullopt : std::optional(Date::from_serial(rows->number({0}))),
                      std::string(rows->text({1})), rows->number({2})});
  }
  return worked;
}

std::vector<PaidHours> read_hours(Database& database, std::int32_t document) {
  const auto rows =
      database.read("SELECT " + time_code_text("r.time_code_id") +
                        ", c.name, r.hours FROM time_rows r LEFT JOIN positions p ON p.id = r.position_id"
                        " LEFT JOIN categories c ON c.id = p.category_id WHERE r.document_id = :p0 ORDER BY r.id",
                    {{"Code", kText}, {"Category", kText}, {"Hours", kDouble}}, {document});
  std::vector<PaidHours> hours;
  for (; !rows->Eof(); rows->MoveNext()) {
    hours.push_back({std::string(rows->text({0})), std::string(rows->text({1})), rows->number({2})});
  }
  return hours;
}

std::vector<PaidSum> read_sums(Database& database, std::int32_t document) {
  const auto rows = database.read(
      "SELECT r.sum_type, r.sum_a, r.percentage, CASE WHEN t.id IS NULL THEN NULL ELSE " +
          time_code_text("t.time_code_id") +
          " END, s.code || '  ' || s.name, e.comment FROM salary_rows r"
          " LEFT JOIN time_rows t ON t.document_id = r.document_id AND t.guid = r.time_row_guid"
          " LEFT JOIN salary_codes s ON s.id = r.salary_code_id"
          " LEFT JOIN extra_charges e ON e.id = r.personal_extra_charge_id WHERE r.document_id = :p0 ORDER BY r.id",
      {{"Type", kInt16},
       {"Sum", kDouble},
       {"Percentage", kDouble},
       {"Time", kText},
       {"Salary", kText},
       {"Comment", kText}},
      {document});
  std::vector<PaidSum> sums;
  for (; !rows->Eof(); rows->MoveNext()) {
    std::string about(rows->text({3}));
    for (const FieldHandle more : {FieldHandle{4}, FieldHandle{5}}) {
      if (!about.empty() && !rows->text(more).empty()) about += ", ";
      about += rows->text(more);
    }
    sums.push_back({static_cast<SumType>(rows->int32({0})), std::move(about),
                    rows->is_null({2}) ? 0 : rows->number({2}), rows->number({1})});
  }
  return sums;
}

PaidMonth read_pay(Database& database, std::int32_t employee, const Month& month) {
  PaidMonth pay;
  const std::vector<Variant> whose = {employee, month.first_day()};
  const auto fault = database.read("SELECT reason FROM month_faults WHERE employee_id = :p0 AND month = :p1",
                                   {{"Reason", kText}}, whose);
  if (fault->RecordCount() > 0) pay.fault = fault->text({0});
  pay.closed = is_closed(database, month);
  const auto document = database.read("SELECT id, check_message FROM documents WHERE employee_id = :p0 AND month = :p1",
                                      {{"ID", kInt32}, {"Check", kText}}, whose);
  if (document->RecordCount() == 0) return pay;
  pay.has_document = true;
  pay.check = document->text({1});
  pay.hours = read_hours(database, document->int32({0}));
  pay.sums = read_sums(database, document->int32({0}));
  return pay;
}

}  // namespace

// In whole cents: binary sums of cents carry a tail.
double PaidMonth::sum_of(SumType type) const {
  double sum = 0;
  for (const PaidSum& each : sums) sum += each.type == type ? each.sum : 0;
  return round_even(sum, 2);
}

double PaidMonth::total() const {
  return round_even(sum_of(SumType::kBasePay) + sum_of(SumType::kSupplement) + sum_of(SumType::kSurcharge), 2);
}

MonthOfPerson month_of_person(Application& application, std::int32_t employee, const Month& month) {
  application.guard().require_view(kSalaryExtensionType);
  Database& database = application.company().database();
  const Snapshot snapshot(database);
  return {.worked = read_worked(database, employee, month), .pay = read_pay(database, employee, month)};
}

}  // namespace quor
