#include "host/insight/room_of_month.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "host/store/object_codes.h"
#include "host/store/sort_key.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

class Measuring : public MonthTaker {
 public:
  explicit Measuring(Database& database) : database_(database) {}

  void begin(const MonthInputs& inputs) override {
    count_ = inputs.count;
    alphabet_ = inputs.alphabet;
    names_.clear();
    for (const PersonInput& person : inputs.people) names_.emplace(person.employee, person.name);
    result_ = {};
  }

  bool take_part(const CalculatedPeople& part) override {
    result_.limits = limits_of(*part.settings.lines);
    for (const MonthDocument& document : part.documents) {
      const Pay pay{document.sum_of(SumType::kBasePay), document.sum_of(SumType::kSupplement),
                    document.sum_of(SumType::kSurcharge)};
      result_.people.push_back({.employee = document.employee,
                                .name = names_[document.employee],
                                .pay = pay,
                                .left = room_left(pay, result_.limits)});
    }
    result_.faults.insert(result_.faults.end(), part.faults.begin(), part.faults.end());
    return database_.pay_inputs_count() == count_;
  }

  bool take_end() override { return true; }

  MonthRoom result(bool cancelled) {
    result_.cancelled = cancelled;
    name_departments();
    std::unordered_map<std::int32_t, std::size_t> place_of;
    for (; !alphabet_->Eof(); alphabet_->MoveNext()) place_of.emplace(alphabet_->int32({0}), place_of.size());
    const auto by_place = [&](const auto& one, const auto& other) {
      return place_of[one.employee] < place_of[other.employee];
    };
    std::sort(result_.people.begin(), result_.people.end(), by_place);
    std::sort(result_.faults.begin(), result_.faults.end(), by_place);
    return std::move(result_);
  }

 private:
  void name_departments() {
    const auto rows =
        database_.read("SELECT e.id, d.name FROM employees e JOIN departments d ON d.id = e.department_id",
                       {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}});
    std::unordered_map<std::int32_t, std::string> departments;
    for (; !rows->Eof(); rows->MoveNext()) departments.emplace(rows->int32({0}), rows->text({1}));
    for (PersonRoom& person : result_.people) person.department = departments[person.employee];
  }

  Database& database_;
  std::int64_t count_ = 0;
  std::shared_ptr<Recordset> alphabet_;
  std::unordered_map<std::int32_t, std::string> names_;
  MonthRoom result_;
};

}  // namespace

MonthRoom room_of_month(Application& application, const Month& month, const MonthOptions& options) {
  application.guard().require_view(kSalaryExtensionType);
  Measuring measuring(application.company().database());
  const bool whole = calculate_people(application, month, options, measuring);
  return measuring.result(!whole);
}

DepartmentRoom& DepartmentRoom::operator+=(const DepartmentRoom& other) {
  people += other.people;
  unlimited += other.unlimited;
  over += other.over;
  supplements = round_even(supplements + other.supplements, 2);
  surcharges = round_even(surcharges + other.surcharges, 2);
  both = round_even(both + other.both, 2);
  return *this;
}

void DepartmentRoom::add(const RoomLeft& left) {
  *this += {.people = 1,
            .unlimited = left.both ? 0 : 1,
            .over = left.over > 0 ? 1 : 0,
            .supplements = left.supplement.value_or(0),
            .surcharges = left.surcharge.value_or(0),
            .both = left.both.value_or(0)};
}

std::vector<DepartmentRoom> room_by_department(const std::vector<PersonRoom>& people) {
  std::map<std::pair<std::string, std::string>, DepartmentRoom> departments;
  for (const PersonRoom& person : people) {
    DepartmentRoom& room = departments[{lithuanian_sort_key(person.department), person.department}];
    room.department = person.department;
    room.add(person.left);
  }
  std::vector<DepartmentRoom> sorted;
  for (auto& [key, room] : departments) sorted.push_back(std::move(room));
  return sorted;
}

}  // namespace quor
