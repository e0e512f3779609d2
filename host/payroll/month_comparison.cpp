#include "host/payroll/month_comparison.h"

#include <algorithm>
#include <unordered_map>

namespace quor {

namespace {

class Comparing : public MonthTaker {
 public:
  Comparing(Application& application, const Month& month, Whom whom)
      : database_(application.company().database()), month_(month), whom_(std::move(whom)) {}

  void begin(const MonthInputs& inputs) override {
    people_ = &inputs.people;
    alphabet_ = inputs.alphabet;
    result_ = {.all = static_cast<std::int32_t>(inputs.people.size()),
               .inputs = inputs.count,
               .missing = {},
               .changed = {},
               .ended = {},
               .faults = {}};
  }

  bool take_part(const CalculatedPeople& part) override {
    const Snapshot snapshot(database_);
    if (database_.pay_inputs_count() != result_.inputs) return false;
    const DocumentDifference found = compare_with_stored(database_, month_, part);
    for (const std::int32_t employee : found.missing) result_.missing.push_back(person(employee));
    for (const std::int32_t employee : found.changed) result_.changed.push_back(person(employee));
    result_.faults.insert(result_.faults.end(), part.faults.begin(), part.faults.end());
    return true;
  }

  bool take_end() override {
    const Snapshot snapshot(database_);
    if (database_.pay_inputs_count() != result_.inputs) return false;
    if (whom_.people.empty()) result_.ended = people_who_ended(database_, month_, whom_.department);
    return true;
  }

  MonthComparison result(bool cancelled) {
    result_.cancelled = cancelled;
    std::unordered_map<std::int32_t, std::int64_t> place_of;
    for (; !alphabet_->Eof(); alphabet_->MoveNext()) {
      place_of.emplace(alphabet_->int32({0}), static_cast<std::int64_t>(place_of.size()));
    }
    const auto sort = [&](auto& listed) {
      std::sort(listed.begin(), listed.end(),
                [&](const auto& one, const auto& other) { return place_of[one.employee] < place_of[other.employee]; });
    };
    sort(result_.missing), sort(result_.changed), sort(result_.ended), sort(result_.faults);
    return std::move(result_);
  }

 private:
  NamedPerson person(std::int32_t employee) const {
    const auto found = std::lower_bound(people_->begin(), people_->end(), employee,
                                        [](const PersonInput& each, std::int32_t id) { return each.employee < id; });
    return {employee, found->name};
  }

  Database& database_;
  const Month& month_;
  const Whom whom_;
  const std::vector<PersonInput>* people_ = nullptr;  // while they are calculated
  std::shared_ptr<Recordset> alphabet_;
  MonthComparison result_;
};

}  // namespace

MonthComparison compare_month(Application& application, const Month& month, const MonthOptions& options) {
  Comparing comparing(application, month, options.whom());
  const bool whole = calculate_people(application, month, options, comparing);
  return comparing.result(!whole);
}

}  // namespace quor
