#include "host/payroll/month_components.h"

#include <charconv>

#include "host/business/object_codes.h"
#include "platform/data/column.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

Month Month::parse(std::string_view text) {
  const std::size_t dash = text.find_first_of("-.");
  if (dash == 4) {
    if (const auto first = try_parse_date(std::string(text) + text[dash] + "01")) return Month(*first);
  }
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(text) + "“ nėra mėnuo: rašykite, pvz., 2008-01.");
}

namespace {

const std::vector<FieldInfo> kPositionFields = {{"UserID", FieldType::kInt32},
                                                {"Preview", FieldType::kText},
                                                {"PositionID", FieldType::kInt32},
                                                {"Share", FieldType::kDouble}};

const std::vector<FieldInfo> kComponentFields = {
    {"Person", FieldType::kText},        {"Category", FieldType::kText},
    {"Factor", FieldType::kDouble},      {"BaseTariff", FieldType::kDouble},
    {"Share", FieldType::kDouble},       {"MonthSalary", FieldType::kDouble},
    {"ServiceYears", FieldType::kInt16}, {"SupplementPercentage", FieldType::kDouble},
    {"Supplement", FieldType::kDouble}};

std::shared_ptr<Recordset> positions_of_month(Database& database, const Month& month,
                                              std::optional<std::int32_t> department) {
  std::string sql =
      "SELECT e.id, e.name, p.id, p.share FROM positions p JOIN employees e ON e.id = p.employee_id"
      " WHERE p.date_from <= :p0 AND (p.date_to IS NULL OR p.date_to >= :p1)";
  std::vector<Variant> values = {month.last_day(), month.first_day()};
  if (department) {
    const auto found =
        database.read("SELECT id FROM departments WHERE id = :p0", {{"ID", FieldType::kInt32}}, {*department});
    if (found->RecordCount() == 0) {
      throw Error(ErrorKind::kObjectMissing, "Nėra padalinio, kurio ID yra " + std::to_string(*department) + ".");
    }
    sql =
        "WITH RECURSIVE tree (id) AS (SELECT id FROM departments WHERE id = :p2 UNION"
        " SELECT d.id FROM departments d JOIN tree ON d.parent_id = tree.id) " +
        sql + " AND e.department_id IN (SELECT id FROM tree)";
    values.push_back(*department);
  }
  return database.read(sql + " ORDER BY e.sort_key, e.id, p.date_from, p.id", kPositionFields, values);
}

// The one row that an engine's method answers with; a failing method throws with its own text.
std::shared_ptr<Recordset> ask(QuorObjectUIO& engine, const char* method, const Parameters& parameters) {
  const MethodResult result = engine.Methods(method, parameters);
  if (result.Code != 0) throw Error(ErrorKind::kObjectMissing, result.Message);
  return result.Value.record_set();
}

// The engine says the years of service only in words, at the end of the supplement's comment.
std::int16_t years_in_comment(const std::string& comment) {
  const std::size_t blank = comment.rfind(' ');
  std::int16_t years = 0;
  std::from_chars(comment.data() + blank + 1, comment.data() + comment.size(), years);
  return years;
}

struct Supplement {
  double percentage;
  std::int16_t years;
};

Supplement supplement_of(QuorObjectUIO& engine, std::int32_t person, Date date) {
  const auto row = ask(engine, "GetPersonalExtraChargeComponents", {person, date});
  return {.percentage = null_to_double(row->field("ExtraChargePercentage")),
          .years = years_in_comment(null_to_text(row->field("Comment")))};
}

void append(std::vector<ColumnData>& columns, std::initializer_list<Variant> values) {
  auto column = columns.begin();
  for (const Variant& value : values) (column++)->append(value);
}

}  // namespace

MonthComponents month_components(Application& application, const Month& month, std::optional<std::int32_t> department) {
  const auto engine = application.new_data_object(kSalaryExtensionType);
  const auto positions = positions_of_month(application.company().database(), month, department);
  const FieldHandle user = positions->handle("UserID"), name = positions->handle("Preview"),
                    position = positions->handle("PositionID"), share = positions->handle("Share");
  const Date date = month.last_day();

  std::vector<ColumnData> columns(kComponentFields.begin(), kComponentFields.end());
  MonthComponents result;
  for (; !positions->Eof(); positions->MoveNext()) {
    const std::string person = null_to_text(positions->field(name));
    try {
      const auto parts = ask(*engine, "GetSalaryComponentsByID", {positions->field(position), std::int16_t{0}, date});
      const Variant tariff = parts->field("ConstantValue");
      const Variant factor = parts->field("TariffFactorValue");
      const MethodResult salary = engine->Methods("GetMonthSalaryValue", {tariff, factor, positions->field(share)});
      const double amount = salary.Value.to_double();
      const Supplement supplement = supplement_of(*engine, positions->field(user).to_int32(), date);
      append(columns,
             {person, parts->field("TariffFactorName"), factor, tariff, positions->field(share), amount,
              supplement.years, supplement.percentage, round_half_up(amount * supplement.percentage / 100, 2)});
    } catch (const Error& error) {
      result.faults.push_back({person, error.what()});
    }
  }
  result.rows = Recordset::from_columns(std::move(columns));
  return result;
}

}  // namespace quor
