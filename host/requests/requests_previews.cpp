// Requests of the previews and the printed lists: everybody's positions and charges of a month, all categories.
#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>

#include "frame/contract/over_limit.h"
#include "host/company/closed_month_basis.h"
#include "host/company/departments.h"
#include "host/company/in_force.h"
#include "host/company/readable_columns.h"
#include "host/requests/position_salary.h"
#include "host/requests/requests.h"
#include "host/store/bound_list.h"
#include "host/store/sort_key.h"
#include "host/store/tables/value_ranges.h"
#include "platform/data/column.h"
#include "platform/data/month.h"
#include "platform/data/number_text.h"

namespace quor::requests {

namespace {

// The rows of whole columns that are filled one behind the other.
template <typename T>
std::vector<T>& values_of(ColumnData& column) {
  return std::get<std::vector<T>>(column.values);
}

// What positions are paid by on any day of the company's time.
class Tariffs {
 public:
  explicit Tariffs(Database& database) {
    const auto settings = dated(database, "SELECT 0, date_from, base_month_tariff_id FROM settings", FieldType::kInt32);
    each(*settings, [&](std::int32_t owner, Date from) { base_types_.add(owner, from, settings->int32(kValue)); });
    const auto constants =
        dated(database, "SELECT constant_type_id, date_from, " + readable_number("value") + " FROM constant_values",
              FieldType::kDouble);
    each(*constants, [&](std::int32_t type, Date from) { constants_.add(type, from, constants->number(kValue)); });
    const auto factors =
        dated(database, "SELECT category_id, date_from, " + readable_number("factor") + " FROM category_rows",
              FieldType::kDouble);
    each(*factors, [&](std::int32_t category, Date from) {
      factors_.add(category, from, factors->is_null(kValue) ? std::nullopt : std::optional(factors->number(kValue)));
    });
    const auto categories =
        database.read("SELECT id, name FROM categories", {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}});
    for (; !categories->Eof(); categories->MoveNext()) names_[categories->int32({0})] = categories->text({1});
  }

  // A position without a constant type of its own (null or 0) has the base month tariff of the settings.
  std::optional<double> base_tariff(std::int32_t constant_type, Date date) const {
    if (constant_type == 0) constant_type = value_or(base_types_.in_force(0, date), 0);
    const double* const value = constants_.in_force(constant_type, date);
    return value == nullptr ? std::nullopt : std::optional(*value);
  }
  std::optional<double> factor(std::int32_t category, Date date) const {
    return value_or(factors_.in_force(category, date), std::optional<double>());
  }
  // Null when there is no such category.
  const std::string* category(std::int32_t id) const {
    const auto found = names_.find(id);
    return found == names_.end() ? nullptr : &found->second;
  }

 private:
  static constexpr FieldHandle kOwner{0}, kFrom{1}, kValue{2};

  static std::shared_ptr<Recordset> dated(Database& database, const std::string& select, FieldType type) {
    return database.read(select + " WHERE date_from IS NOT NULL" + DatedRows<int>::kOrder,
                         {{"Owner", FieldType::kInt32}, {"DateFrom", FieldType::kDate}, {"Value", type}});
  }
  template <typename Take>
  static void each(Recordset& rows, const Take& take) {
    for (; !rows.Eof(); rows.MoveNext()) take(rows.int32(kOwner), rows.field(kFrom).to_date());
  }
  template <typename T>
  static T value_or(const T* value, T otherwise) {
    return value == nullptr ? otherwise : *value;
  }

  DatedRows<std::int32_t> base_types_;  // of the one owner 0
  DatedRows<double> constants_;
  DatedRows<std::optional<double>> factors_;
  std::unordered_map<std::int32_t, std::string> names_;
};

// The condition that the employee `e` is of the department, bound to `bind`; all employees for 0. The plus keeps the
// index by department out of it: a walk through all rows in their own order is faster than one that leaps among them.
std::string and_of_department(Company& company, std::int32_t department, const char* bind,
                              std::vector<Variant>& values) {
  if (department == 0) return "";
  require_department(company, department);
  values.emplace_back(department);
  return " AND " + in_department("+e.department_id", bind);
}

// Columns of a preview, a row a position.
class PreviewColumns {
 public:
  explicit PreviewColumns(std::size_t rows) {
    users_.reserve(rows);
    names_.reserve(rows, rows * kTextBytes);
    categories_.reserve(rows, rows * kTextBytes);
  }

  void add(std::int32_t user, std::string_view name, const std::string* category, std::optional<double> factor,
           std::optional<double> tariff, double share) {
    users_.push_back(user);
    names_.push_back(name);
    if (category == nullptr) columns_[2].nulls.set(categories_.size(), true);
    categories_.push_back(category == nullptr ? std::string_view() : std::string_view(*category));
    append(3, factor);
    append(4, tariff);
    const bool payable = factor && tariff && kFactor.holds(*factor) && kTariff.holds(*tariff) && kShare.holds(share);
    append(5, payable ? std::optional(position_salary(*tariff, *factor, share)) : std::nullopt);
  }
  Answer record_set() { return Recordset::from_columns(std::move(columns_)); }
  static std::vector<FieldInfo> fields() {
    return {{"UserID", FieldType::kInt32},         {"Preview", FieldType::kText},
            {"CategoryName", FieldType::kText},    {"Factor", FieldType::kDouble},
            {"ConstantValue", FieldType::kDouble}, {"RoundedSalary", FieldType::kDouble}};
  }

 private:
  static constexpr std::size_t kTextBytes = 24;

  void append(std::size_t column, std::optional<double> value) {
    auto& values = values_of<double>(columns_[column]);
    if (!value) columns_[column].nulls.set(values.size(), true);
    values.push_back(value.value_or(0));
  }

  static std::vector<ColumnData> columns() {
    const std::vector<FieldInfo> all = fields();
    return {all.begin(), all.end()};
  }

  std::vector<ColumnData> columns_ = columns();
  std::vector<std::int32_t>& users_ = values_of<std::int32_t>(columns_[0]);
  TextColumn& names_ = std::get<TextColumn>(columns_[1].values);
  TextColumn& categories_ = std::get<TextColumn>(columns_[2].values);
};

constexpr std::int16_t kBasePay = 0, kSupplement = 1, kSurcharge = 2;

// Columns of the month's sums, a row a person and sum type.
class SumColumns {
 public:
  void add(std::int32_t user, double pay, std::int16_t type, double sum) {
    values_of<std::int32_t>(columns_[0]).push_back(user);
    values_of<double>(columns_[1]).push_back(pay);
    values_of<std::int16_t>(columns_[2]).push_back(type);
    values_of<double>(columns_[3]).push_back(sum);
    values_of<double>(columns_[4]).push_back(percentage_of(sum, pay));
  }
  Answer record_set() { return Recordset::from_columns(std::move(columns_)); }

 private:
  std::vector<ColumnData> columns_ = {
      ColumnData({"UserID", FieldType::kInt32}), ColumnData({"Alga", FieldType::kDouble}),
      ColumnData({"SumType", FieldType::kInt16}), ColumnData({"SumA", FieldType::kDouble}),
      ColumnData({"Percentage", FieldType::kDouble})};
};

// The sum of the salary rows `r` of a type that also pass `condition`; null when there is none.
std::string sum_of(std::int16_t type, const std::string& condition = "") {
  return "SUM(CASE WHEN r.sum_type = " + std::to_string(type) + condition + " THEN r.sum_a END)";
}

// That the time row of `r` has one of the codes, bound from `values.size()` on.
std::string and_has_code(const std::vector<std::int32_t>& codes, std::vector<Variant>& values) {
  if (codes.empty()) return " AND 1 = 0";
  return " AND EXISTS (SELECT 1 FROM time_rows t WHERE t.document_id = r.document_id AND t.guid = r.time_row_guid"
         " AND t.time_code_id IN (" +
         bound_list(codes, values) + "))";
}

}  // namespace

namespace {

// The positions in force on a day of the month.
Answer positions_in_force(Company& company, Date first, Date last, std::int32_t department) {
  const Tariffs tariffs(company.database());
  std::vector<Variant> values = {first, last};
  const std::string of_department = and_of_department(company, department, ":p2", values);
  const auto positions =
      company.database().read("SELECT e.id, e.name, p.category_id, p.constant_type_id, " + readable_number("p.share") +
                                  ", " + readable_date("p.date_to") +
                                  " FROM positions p JOIN employees e ON e.id = p.employee_id"
                                  " WHERE p.date_from <= :p1 AND (p.date_to IS NULL OR p.date_to >= :p0)" +
                                  of_department + " ORDER BY e.sort_key, e.id, p.date_from, p.id",
                              {{"UserID", FieldType::kInt32},
                               {"Preview", FieldType::kText},
                               {"Category", FieldType::kInt32},
                               {"Constant", FieldType::kInt32},
                               {"Share", FieldType::kDouble},
                               {"DateTo", FieldType::kDate}},
                              values);
  PreviewColumns preview(static_cast<std::size_t>(positions->RecordCount()));
  for (const FieldHandle user{0}, name{1}, category{2}, constant{3}, share{4}, to{5}; !positions->Eof();
       positions->MoveNext()) {
    const Date day = positions->is_null(to) ? last : std::min(last, positions->field(to).to_date());
    const std::int32_t category_id = positions->int32(category);
    preview.add(positions->int32(user), positions->text(name), tariffs.category(category_id),
                tariffs.factor(category_id, day), tariffs.base_tariff(positions->int32(constant), day),
                positions->number(share));
  }
  return preview.record_set();
}

// What the documents of a closed month were calculated from.
Answer positions_of_documents(Company& company, Date month, std::int32_t department) {
  std::vector<Variant> values = {month};
  const std::string of_department = and_of_department(company, department, ":p1", values);
  return company.database().read(
      "SELECT e.id, e.name, p.category, p.factor, p.tariff, p.month_salary FROM documents d"
      " JOIN document_positions p ON p.document_id = d.id JOIN employees e ON e.id = d.employee_id"
      " WHERE d.month = :p0" +
          of_department + " ORDER BY e.sort_key, e.id, p.id",
      PreviewColumns::fields(), values);
}

}  // namespace

Answer office_employee_preview(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  const std::int32_t department = parameter.whole();
  parameter.end();
  const Month month = Month::of(date);
  return settings_of_closed_month(company, date).empty()
             ? positions_in_force(company, month.first_day(), month.last_day(), department)
             : positions_of_documents(company, month.first_day(), department);
}

Answer office_employee_surcharge(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  const std::int32_t department = parameter.whole();
  const std::vector<std::int32_t> codes = parameter.whole_list();
  parameter.end();
  std::vector<Variant> values = {Month::of(date).first_day()};
  const std::string of_department = and_of_department(company, department, ":p1", values);
  const std::string has_code = and_has_code(codes, values);
  const auto sums = company.database().read(
      "SELECT d.employee_id, " + sum_of(kBasePay) + ", " + sum_of(kSupplement) + ", " + sum_of(kSurcharge, has_code) +
          " FROM documents d JOIN salary_rows r ON r.document_id = d.id" +
          (department == 0 ? "" : " JOIN employees e ON e.id = d.employee_id") + " WHERE d.month = :p0" +
          of_department + " GROUP BY d.employee_id ORDER BY d.employee_id",
      {{"UserID", FieldType::kInt32},
       {"Pay", FieldType::kDouble},
       {"Supplements", FieldType::kDouble},
       {"Surcharges", FieldType::kDouble}},
      values);
  SumColumns rows;
  for (const FieldHandle user{0}, pay{1}; !sums->Eof(); sums->MoveNext()) {
    const double month_pay = round_even(sums->number(pay), 2);
    for (const std::int16_t type : {kBasePay, kSupplement, kSurcharge}) {
      const FieldHandle sum{static_cast<std::size_t>(type) + 1};
      if (!sums->is_null(sum)) rows.add(sums->int32(user), month_pay, type, round_even(sums->number(sum), 2));
    }
  }
  return rows.record_set();
}

Answer category_preview(Company& company, ParameterText& parameter) {
  parameter.none();
  const std::vector<FieldInfo> fields = {
      {"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"Factor", FieldType::kDouble}};
  const auto rows = company.database().read("SELECT c.id, c.name, " + readable_number("r.factor") +
                                                " FROM categories c JOIN category_rows r ON r.category_id = c.id"
                                                " ORDER BY c.id, r.date_from NULLS FIRST, r.id",
                                            fields);
  // Categories are few and keep no sort keys. Rows of one name stay by category and date.
  using Row = std::pair<std::string, std::array<Variant, 3>>;
  std::vector<Row> by_name;
  for (const FieldHandle id{0}, name{1}, factor{2}; !rows->Eof(); rows->MoveNext()) {
    by_name.push_back(
        {lithuanian_sort_key(rows->text(name)), {rows->field(id), rows->field(name), rows->field(factor)}});
  }
  std::stable_sort(by_name.begin(), by_name.end(),
                   [](const Row& one, const Row& other) { return one.first < other.first; });
  std::vector<ColumnData> columns(fields.begin(), fields.end());
  for (const auto& [key, row] : by_name) {
    for (std::size_t i = 0; i < columns.size(); ++i) columns[i].append(row[i]);
  }
  return Recordset::from_columns(std::move(columns));
}

}  // namespace quor::requests
