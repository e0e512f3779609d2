// Requests of the previews and the printed lists: everybody's positions and charges of a month, all categories.
#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>

#include "host/business/departments.h"
#include "host/business/in_force.h"
#include "host/business/position_salary.h"
#include "host/business/readable_columns.h"
#include "host/business/requests.h"
#include "host/store/sort_key.h"
#include "host/store/value_ranges.h"
#include "platform/data/column.h"
#include "platform/data/number_text.h"

namespace quor::requests {

namespace {

// The rows of whole columns that are filled one behind the other.
template <typename T>
std::vector<T>& values_of(ColumnData& column) {
  return std::get<std::vector<T>>(column.values);
}

struct Factor {
  std::string name;
  std::optional<double> factor;  // none in force at the date
};

// What positions are paid by at one date.
class Tariffs {
 public:
  Tariffs(Company& company, Date date) {
    const std::string quoted_date = "'" + date_text(date) + "'";
    ParameterText of_settings(quoted_date), of_constants(quoted_date);
    const auto settings = office_employee_settings(company, of_settings);
    if (settings->RecordCount() > 0) base_type_ = settings->int32(settings->handle("BaseMonthTariffID"));
    const auto constants = salary_constants(company, of_constants);
    const FieldHandle type = constants->handle("ConstantTypeID"), value = constants->handle("ConstantValue");
    for (; !constants->Eof(); constants->MoveNext()) constants_[constants->int32(type)] = constants->number(value);

    const auto factors = company.database().read(
        "SELECT c.id, c.name, " + readable_number("r.factor") +
            " FROM categories c LEFT JOIN category_rows r ON r.id = " +
            id_in_force("category_rows", "dated.category_id = c.id", ":p0"),
        {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"Factor", FieldType::kDouble}}, {date});
    for (const FieldHandle id{0}, name{1}, factor{2}; !factors->Eof(); factors->MoveNext()) {
      Factor& entry = factors_[factors->int32(id)];
      entry.name = factors->text(name);
      if (!factors->is_null(factor)) entry.factor = factors->number(factor);
    }
  }

  // A position without a constant type of its own (null or 0) has the base month tariff of the settings.
  std::optional<double> base_tariff(std::int32_t constant_type) const {
    const auto found = constants_.find(constant_type != 0 ? constant_type : base_type_);
    return found == constants_.end() ? std::nullopt : std::optional(found->second);
  }
  const Factor* category(std::int32_t id) const {
    const auto found = factors_.find(id);
    return found == factors_.end() ? nullptr : &found->second;
  }

 private:
  std::int32_t base_type_ = 0;
  std::unordered_map<std::int32_t, double> constants_;
  std::unordered_map<std::int32_t, Factor> factors_;
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

  void add(std::int32_t user, std::string_view name, const Factor* category, std::optional<double> tariff,
           double share) {
    users_.push_back(user);
    names_.push_back(name);
    const bool has_factor = category != nullptr && category->factor;
    const bool payable =
        has_factor && tariff && kFactor.holds(*category->factor) && kTariff.holds(*tariff) && kShare.holds(share);
    if (category == nullptr) columns_[2].nulls.set(categories_.size(), true);
    categories_.push_back(category == nullptr ? std::string_view() : category->name);
    append(3, has_factor ? category->factor : std::nullopt);
    append(4, tariff);
    append(5, payable ? std::optional(position_salary(*tariff, *category->factor, share)) : std::nullopt);
  }
  Answer record_set() { return Recordset::from_columns(std::move(columns_)); }

 private:
  static constexpr std::size_t kTextBytes = 24;

  void append(std::size_t column, std::optional<double> value) {
    auto& values = values_of<double>(columns_[column]);
    if (!value) columns_[column].nulls.set(values.size(), true);
    values.push_back(value.value_or(0));
  }

  std::vector<ColumnData> columns_ = {
      ColumnData({"UserID", FieldType::kInt32}),         ColumnData({"Preview", FieldType::kText}),
      ColumnData({"CategoryName", FieldType::kText}),    ColumnData({"Factor", FieldType::kDouble}),
      ColumnData({"ConstantValue", FieldType::kDouble}), ColumnData({"RoundedSalary", FieldType::kDouble})};
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
    // In this order 550 of 1000 is exactly 55, as the check of a month has it.
    values_of<double>(columns_[4]).push_back(pay == 0 ? 0 : sum * 100 / pay);
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
  std::string binds;
  for (const std::int32_t code : codes) {
    binds += (binds.empty() ? ":p" : ", :p") + std::to_string(values.size());
    values.emplace_back(code);
  }
  return " AND EXISTS (SELECT 1 FROM time_rows t WHERE t.document_id = r.document_id AND t.guid = r.time_row_guid"
         " AND t.time_code_id IN (" +
         binds + "))";
}

}  // namespace

Answer office_employee_preview(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  const std::int32_t department = parameter.whole();
  parameter.end();
  const Tariffs tariffs(company, date);
  std::vector<Variant> values = {date};
  const std::string of_department = and_of_department(company, department, ":p1", values);
  const auto positions = company.database().read(
      "SELECT e.id, e.name, p.category_id, p.constant_type_id, p.share"
      " FROM positions p JOIN employees e ON e.id = p.employee_id"
      " WHERE p.date_from <= :p0 AND (p.date_to IS NULL OR p.date_to >= :p0)" +
          of_department + " ORDER BY e.sort_key, e.id, p.date_from, p.id",
      {{"UserID", FieldType::kInt32},
       {"Preview", FieldType::kText},
       {"Category", FieldType::kInt32},
       {"Constant", FieldType::kInt32},
       {"Share", FieldType::kDouble}},
      values);
  PreviewColumns preview(static_cast<std::size_t>(positions->RecordCount()));
  for (const FieldHandle user{0}, name{1}, category{2}, constant{3}, share{4}; !positions->Eof();
       positions->MoveNext()) {
    preview.add(positions->int32(user), positions->text(name), tariffs.category(positions->int32(category)),
                tariffs.base_tariff(positions->int32(constant)), positions->number(share));
  }
  return preview.record_set();
}

Answer office_employee_surcharge(Company& company, ParameterText& parameter) {
  const Date date = parameter.date();
  const std::int32_t department = parameter.whole();
  const std::vector<std::int32_t> codes = parameter.whole_list();
  parameter.end();
  std::vector<Variant> values = {first_of_month(date)};
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
