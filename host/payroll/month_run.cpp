#include "host/payroll/month_run.h"

#include <algorithm>
#include <unordered_map>

#include "host/business/departments.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/document_calculation.h"
#include "platform/data/column.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr std::size_t kPeopleOfTransaction = 1000;

const std::vector<FieldInfo> kRowFields = {{"Person", FieldType::kText},
                                           {"Category", FieldType::kText},
                                           {"Factor", FieldType::kDouble},
                                           {"BaseTariff", FieldType::kDouble},
                                           {"Share", FieldType::kDouble},
                                           {"MonthSalary", FieldType::kDouble},
                                           {"BasePay", FieldType::kDouble},
                                           {"ServiceYears", FieldType::kInt16},
                                           {"SupplementPercentage", FieldType::kDouble},
                                           {"ServiceSupplement", FieldType::kDouble},
                                           {"Supplements", FieldType::kDouble},
                                           {"Surcharges", FieldType::kDouble},
                                           {"Total", FieldType::kDouble},
                                           {"Check", FieldType::kText}};

// The calculated people as printed lines, brought into alphabetical order at the end.
class Lines {
 public:
  Lines() : columns_(kRowFields.begin(), kRowFields.end()) {}

  void add(const PersonInput& person, const CalculatedMonth& month) {
    lines_of_[person.employee] = {columns_.front().size(), month.positions.size()};
    const MonthDocument& document = month.document;
    const double supplements = document.sum_of(SumType::kSupplement);
    const double surcharges = document.sum_of(SumType::kSurcharge);
    const double total = round_even(document.sum_of(SumType::kBasePay) + supplements + surcharges, 2);
    bool first = true;
    for (const PositionPay& position : month.positions) {
      append({first ? Variant(person.name) : Variant(""), position.category, position.factor, position.tariff,
              position.share, position.month_salary, position.base_pay});
      if (first) {
        append_rest({month.service_years, month.supplement_percentage, month.service_supplement, supplements,
                     surcharges, total, document.check_message});
      } else {
        append_rest({kNull, kNull, kNull, kNull, kNull, kNull, ""});
      }
      first = false;
    }
  }

  // `order`: employee IDs in alphabetical order.
  std::shared_ptr<Recordset> in_order(Recordset& order) const {
    std::vector<ColumnData> sorted(kRowFields.begin(), kRowFields.end());
    for (; !order.Eof(); order.MoveNext()) {
      const auto found = lines_of_.find(order.int32({0}));
      if (found == lines_of_.end()) continue;
      const auto [first, count] = found->second;
      for (std::size_t line = first; line < first + count; ++line) {
        for (std::size_t i = 0; i < sorted.size(); ++i) sorted[i].append_cell(columns_[i], line);
      }
    }
    return Recordset::from_columns(std::move(sorted));
  }

 private:
  static constexpr std::size_t kPositionColumns = 7;

  void append(std::initializer_list<Variant> values) {
    auto column = columns_.begin();
    for (const Variant& value : values) (column++)->append(value);
  }
  void append_rest(std::initializer_list<Variant> values) {
    auto column = columns_.begin() + kPositionColumns;
    for (const Variant& value : values) (column++)->append(value);
  }

  std::vector<ColumnData> columns_;
  std::unordered_map<std::int32_t, std::pair<std::size_t, std::size_t>> lines_of_;  // first line and count
};

class Calculation {
 public:
  Calculation(Application& application, const Month& month, const MonthRunOptions& options)
      : application_(application), month_(month), options_(options) {}

  MonthRun run() {
    Company& company = application_.company();
    company.refresh();
    require_open(company.database(), month_);
    const MonthInputs inputs = read_month_inputs(company, month_, options_.department);
    result_.all = static_cast<std::int32_t>(inputs.people.size());
    DocumentCalculation calculation(application_, month_, inputs);
    for (std::size_t first = 0; first < inputs.people.size() && !result_.cancelled; first += kPeopleOfTransaction) {
      const std::size_t last = std::min(first + kPeopleOfTransaction, inputs.people.size());
      run_part(calculation, inputs.people, first, last);
    }
    if (!result_.cancelled) remove_those_who_ended();
    result_.rows = lines_.in_order(
        *company.database().read("SELECT id FROM employees ORDER BY sort_key, id", {{"ID", FieldType::kInt32}}));
    return std::move(result_);
  }

 private:
  void run_part(DocumentCalculation& calculation, const std::vector<PersonInput>& people, std::size_t first,
                std::size_t last) {
    CalculatedRun part;
    std::size_t next = first;
    for (; next < last; ++next) {
      result_.cancelled = options_.cancelled && options_.cancelled();
      if (result_.cancelled) break;
      calculate_person(calculation, people[next], part);
      if (options_.progress) options_.progress(static_cast<std::int32_t>(next + 1), result_.all);
    }
    if (next == first) return;
    result_.changed += store_run(application_.company().database(), month_, part);
    result_.done = static_cast<std::int32_t>(next);
    result_.faults.insert(result_.faults.end(), part.faults.begin(), part.faults.end());
  }

  void calculate_person(DocumentCalculation& calculation, const PersonInput& person, CalculatedRun& part) {
    try {
      CalculatedMonth month = calculation.calculate(person);
      lines_.add(person, month);
      part.documents.push_back(std::move(month.document));
    } catch (const Error& error) {
      part.faults.push_back({person.employee, person.name, error.what()});
    }
  }

  void remove_those_who_ended() {
    const std::string scope = options_.department ? in_department("e.department_id", ":p2") : "";
    const Variant department = options_.department ? Variant(*options_.department) : Variant();
    result_.changed += remove_ended(application_.company().database(), month_, scope, department);
  }

  Application& application_;
  const Month& month_;
  const MonthRunOptions& options_;
  MonthRun result_;
  Lines lines_;
};

}  // namespace

MonthRun calculate_month(Application& application, const Month& month, const MonthRunOptions& options) {
  return Calculation(application, month, options).run();
}

}  // namespace quor
