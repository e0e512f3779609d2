#include "host/payroll/calculated_month.h"

#include <algorithm>
#include <unordered_map>

#include "frame/contract/over_limit.h"
#include "host/payroll/closed_month_guard.h"
#include "host/payroll/last_calculation.h"
#include "host/store/object_codes.h"
#include "platform/data/column.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

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

  void add(const PersonInput& person, const PersonMonth& month) {
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

// Stores what is calculated, as long as it is of the inputs of today.
class Storing : public MonthTaker {
 public:
  Storing(Application& application, const Month& month, const MonthOptions& options)
      : database_(application.company().database()), user_(application.user()), month_(month), options_(options) {}

  void begin(const MonthInputs& inputs) override {
    require_open(database_, month_);
    alphabet_ = inputs.alphabet;
    result_ = {
        .all = static_cast<std::int32_t>(inputs.people.size()), .inputs = inputs.count, .faults = {}, .rows = nullptr};
    lines_ = Lines();
  }
  void take(const PersonInput& person, const PersonMonth& month) override { lines_.add(person, month); }
  bool take_part(const CalculatedPeople& part) override {
    if (!note(store_people(database_, month_, part, result_.inputs))) return false;
    result_.done += static_cast<std::int32_t>(part.documents.size() + part.faults.size());
    result_.faults.insert(result_.faults.end(), part.faults.begin(), part.faults.end());
    result_.over_limit += static_cast<std::int32_t>(
        std::count_if(part.documents.begin(), part.documents.end(),
                      [](const MonthDocument& document) { return document.check_code == kOverLimit; }));
    return true;
  }
  bool take_end() override {
    if (!options_.people.empty()) return true;
    if (!note(remove_ended(database_, month_, options_.department, result_.inputs))) return false;
    return !options_.whom().everybody() || note_last_calculation(database_, month_, result_.inputs, user_);
  }

  CalculatedMonth result(bool cancelled) {
    std::sort(changed_.begin(), changed_.end());
    changed_.erase(std::unique(changed_.begin(), changed_.end()), changed_.end());
    result_.changed = static_cast<std::int32_t>(changed_.size());
    result_.changed_people = std::move(changed_);
    result_.cancelled = cancelled;
    result_.rows = lines_.in_order(*alphabet_);
    return std::move(result_);
  }

 private:
  // What an abandoned attempt has written counts too, once for each person.
  bool note(const std::optional<ChangedDocuments>& changed) {
    if (changed) changed_.insert(changed_.end(), changed->begin(), changed->end());
    return changed.has_value();
  }

  Database& database_;
  const std::string user_;
  const Month& month_;
  const MonthOptions& options_;
  std::shared_ptr<Recordset> alphabet_;
  ChangedDocuments changed_;
  CalculatedMonth result_;
  Lines lines_;
};

}  // namespace

CalculatedMonth calculate_month(Application& application, const Month& month, const MonthOptions& options) {
  application.guard().require_right(UserRight::kWrite, kSalaryExtensionType, "skaičiuoti darbo užmokesčio");
  const bool may_see = application.HasRight(UserRight::kView, kSalaryExtensionType, 0);
  Storing storing(application, month, options);
  const bool whole = calculate_people(application, month, options, storing);
  CalculatedMonth result = storing.result(!whole);
  if (!may_see) result.rows = Recordset::from_columns({kRowFields.begin(), kRowFields.end()});
  return result;
}

}  // namespace quor
