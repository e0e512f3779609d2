#include "host/payroll/month_overview.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <unordered_map>

#include "frame/contract/over_limit.h"
#include "host/company/departments.h"
#include "host/payroll/month_document.h"
#include "host/store/object_codes.h"
#include "host/store/sort_key.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

double cents(double sum) { return round_even(sum, 2); }

void add_sum(Pay& pay, SumType type, double sum) {
  switch (type) {
    case SumType::kBasePay:
      pay.base = cents(pay.base + sum);
      break;
    case SumType::kSupplement:
      pay.supplements = cents(pay.supplements + sum);
      break;
    case SumType::kSurcharge:
      pay.surcharges = cents(pay.surcharges + sum);
      break;
  }
}

// The condition on the employee `e`, behind the month bound to :p0.
std::string people_of(std::optional<std::int32_t> department, std::vector<Variant>& values) {
  if (!department) return "";
  values.emplace_back(*department);
  return " AND " + in_department("e.department_id", ":p1");
}

// Everybody with a document or a fault, without the sums.
std::vector<PersonPay> read_people(Database& database, const std::string& condition,
                                   const std::vector<Variant>& values) {
  const auto rows = database.read(
      "SELECT e.id, e.sort_key, e.name, dep.name, d.id, d.check_code, d.check_message, f.reason,"
      " s.extra_charge_percentage, s.surcharge_percentage, s.total_charge_percentage FROM employees e"
      " LEFT JOIN documents d ON d.employee_id = e.id AND d.month = :p0"
      " LEFT JOIN month_faults f ON f.employee_id = e.id AND f.month = :p0"
      " LEFT JOIN document_settings s ON s.guid = d.settings_guid AND s.line = 1"
      " LEFT JOIN departments dep ON dep.id = e.department_id"
      " WHERE (d.id IS NOT NULL OR f.reason IS NOT NULL)" +
          condition + " ORDER BY e.sort_key, e.id",
      {{"ID", FieldType::kInt32},
       {"SortKey", FieldType::kText},
       {"Name", FieldType::kText},
       {"Department", FieldType::kText},
       {"Document", FieldType::kInt32},
       {"Code", FieldType::kInt32},
       {"Message", FieldType::kText},
       {"Fault", FieldType::kText},
       {"Supplements", FieldType::kDouble},
       {"Surcharges", FieldType::kDouble},
       {"Both", FieldType::kDouble}},
      values);
  std::vector<PersonPay> people;
  for (; !rows->Eof(); rows->MoveNext()) {
    people.push_back({.employee = rows->int32({0}),
                      .sort_key = std::string(rows->text({1})),
                      .name = std::string(rows->text({2})),
                      .department = std::string(rows->text({3})),
                      .has_document = !rows->is_null({4}),
                      .over_limit = rows->int32({5}) == kOverLimit,
                      .limits = {rows->number({8}), rows->number({9}), rows->number({10})},
                      .check = std::string(rows->text({6})),
                      .fault = std::string(rows->text({7}))});
  }
  return people;
}

}  // namespace

double Pay::total() const { return cents(base + supplements + surcharges); }

Pay& Pay::operator+=(const Pay& other) {
  base = cents(base + other.base);
  supplements = cents(supplements + other.supplements);
  surcharges = cents(surcharges + other.surcharges);
  return *this;
}

Pay operator-(const Pay& now, const Pay& before) {
  return {cents(now.base - before.base), cents(now.supplements - before.supplements),
          cents(now.surcharges - before.surcharges)};
}

std::vector<PersonPay> pay_of_month(Application& application, const Month& month,
                                    std::optional<std::int32_t> department) {
  application.guard().require_view(kSalaryExtensionType);
  Company& company = application.company();
  company.refresh();
  if (department) require_department(company, *department);
  std::vector<Variant> values = {month.first_day()};
  const std::string condition = people_of(department, values);
  Database& database = company.database();
  const Snapshot snapshot(database);
  std::vector<PersonPay> people = read_people(database, condition, values);
  std::unordered_map<std::int32_t, PersonPay*> by_id;
  for (PersonPay& person : people) by_id.emplace(person.employee, &person);
  const auto sums = database.read(
      "SELECT d.employee_id, r.sum_type, SUM(r.sum_a) FROM documents d JOIN salary_rows r ON r.document_id = d.id"
      " JOIN employees e ON e.id = d.employee_id WHERE d.month = :p0" +
          condition + " GROUP BY d.employee_id, r.sum_type",
      {{"UserID", FieldType::kInt32}, {"Type", FieldType::kInt32}, {"Sum", FieldType::kDouble}}, values);
  for (; !sums->Eof(); sums->MoveNext()) {
    add_sum(by_id.at(sums->int32({0}))->pay, static_cast<SumType>(sums->int32({1})), sums->number({2}));
  }
  return people;
}

std::vector<DepartmentPay> by_department(const std::vector<PersonPay>& people) {
  std::map<std::string, DepartmentPay> by_name;  // by sort key and name
  for (const PersonPay& person : people) {
    DepartmentPay& sums = by_name[lithuanian_sort_key(person.department) + '\n' + person.department];
    sums.department = person.department;
    ++sums.people;
    sums.over_limit += person.over_limit ? 1 : 0;
    sums.pay += person.pay;
  }
  std::vector<DepartmentPay> all;
  for (auto& [key, sums] : by_name) all.push_back(std::move(sums));
  return all;
}

namespace {

PersonDifference difference_of(const PersonPay* was, const PersonPay* is) {
  const bool was_paid = was != nullptr && was->has_document, is_paid = is != nullptr && is->has_document;
  PersonDifference difference{.person = is != nullptr ? *is : *was};
  if (was_paid) difference.before = was->pay;
  if (is_paid) difference.now = is->pay;
  if (was_paid != is_paid) {
    difference.change = is_paid ? PayChange::kJoined : PayChange::kLeft;
  } else if (!(difference.before == difference.now)) {
    difference.change = PayChange::kChanged;
  }
  return difference;
}

}  // namespace

// Two lists in one order are walked beside each other.
std::vector<PersonDifference> pay_differences(const std::vector<PersonPay>& before, const std::vector<PersonPay>& now) {
  const auto stands_before = [](const PersonPay& one, const PersonPay& other) {
    return std::tie(one.sort_key, one.employee) < std::tie(other.sort_key, other.employee);
  };
  std::vector<PersonDifference> all;
  auto was = before.begin();
  auto is = now.begin();
  while (was != before.end() || is != now.end()) {
    const bool only_before = is == now.end() || (was != before.end() && stands_before(*was, *is));
    const bool only_now = !only_before && (was == before.end() || stands_before(*is, *was));
    all.push_back(difference_of(only_now ? nullptr : &*was, only_before ? nullptr : &*is));
    if (!only_now) ++was;
    if (!only_before) ++is;
  }
  return all;
}

std::array<Pay, 12> fund_of_year(Application& application, int year) {
  application.guard().require_view(kSalaryExtensionType);
  const auto sums = application.company().database().read(
      "SELECT d.month, r.sum_type, SUM(r.sum_a) FROM documents d JOIN salary_rows r ON r.document_id = d.id"
      " WHERE d.month BETWEEN :p0 AND :p1 GROUP BY d.month, r.sum_type",
      {{"Month", FieldType::kDate}, {"Type", FieldType::kInt32}, {"Sum", FieldType::kDouble}},
      {Date::from_ymd(year, 1, 1), Date::from_ymd(year, 12, 1)});
  std::array<Pay, 12> fund = {};
  for (; !sums->Eof(); sums->MoveNext()) {
    const auto month = static_cast<std::size_t>(sums->field("Month").to_date().month() - 1);
    add_sum(fund[month], static_cast<SumType>(sums->int32({1})), sums->number({2}));
  }
  return fund;
}

// Documents are found by month and person together: the months are stepped through, so that the work grows with them
// and not with everybody's documents.
std::vector<MonthPay> pay_of_person(Application& application, std::int32_t employee) {
  application.guard().require_view(kSalaryExtensionType);
  const auto sums = application.company().database().read(
      "WITH RECURSIVE months (month) AS (SELECT MIN(month) FROM documents UNION ALL"
      " SELECT (SELECT MIN(d.month) FROM documents d WHERE d.month > m.month) FROM months m WHERE m.month IS NOT NULL)"
      " SELECT d.month, r.sum_type, SUM(r.sum_a) FROM months m"
      " JOIN documents d ON d.month = m.month AND d.employee_id = :p0"
      " LEFT JOIN salary_rows r ON r.document_id = d.id GROUP BY d.month, r.sum_type ORDER BY d.month",
      {{"Month", FieldType::kDate}, {"Type", FieldType::kInt32}, {"Sum", FieldType::kDouble}}, {employee});
  std::vector<MonthPay> months;
  for (; !sums->Eof(); sums->MoveNext()) {
    const Month month = Month::of(sums->field("Month").to_date());
    if (months.empty() || months.back().month != month) months.push_back({month, {}});
    add_sum(months.back().pay, static_cast<SumType>(sums->int32({1})), sums->number({2}));
  }
  return months;
}

std::vector<DatedFactor> factors_of_category(Application& application, std::int32_t category) {
  application.guard().require_view(kCategoryType);
  const auto rows = application.company().database().read(
      "SELECT date_from, factor FROM category_rows WHERE category_id = :p0 AND date_from IS NOT NULL"
      " AND factor IS NOT NULL ORDER BY date_from, id",
      {{"From", FieldType::kDate}, {"Factor", FieldType::kDouble}}, {category});
  std::vector<DatedFactor> factors;
  for (; !rows->Eof(); rows->MoveNext()) factors.push_back({rows->field("From").to_date(), rows->number({1})});
  return factors;
}

}  // namespace quor
