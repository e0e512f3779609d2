#include "host/insight/steps_ahead.h"

#include <algorithm>
#include <map>
#include <set>

#include "frame/contract/over_limit.h"
#include "host/company/departments.h"
#include "host/requests/parameter_text.h"
#include "host/requests/requests.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/quoted_text.h"

namespace quor {

namespace {

struct Employed {
  std::int32_t employee;
  std::string name;
  std::vector<std::pair<double, double>> positions = {};  // first and last day, as serials

  bool on(Date day) const {
    return std::any_of(positions.begin(), positions.end(), [&](const auto& position) {
      return position.first <= day.serial() && day.serial() <= position.second;
    });
  }
};

// At one month's end.
struct Service {
  std::int16_t years = 0;
  double percentage = 0;
};

Month month_after(const Month& month) { return Month::of(add_days(month.last_day(), 1)); }

// In alphabetical order.
std::vector<Employed> read_employed(Database& database, Date from, Date to, const MonthOptions& options) {
  std::vector<Variant> values = {to, from};
  std::string condition;
  if (options.department) {
    condition = " AND " + in_department("e.department_id", ":p2");
    values.emplace_back(*options.department);
  }
  const auto rows = database.read(
      "SELECT e.id, e.name, p.date_from, p.date_to FROM positions p JOIN employees e ON e.id = p.employee_id"
      " WHERE p.date_from <= :p0 AND (p.date_to IS NULL OR p.date_to >= :p1)" +
          condition + " ORDER BY e.sort_key, e.id",
      {{"ID", FieldType::kInt32}, {"Name", FieldType::kText}, {"From", FieldType::kDouble}, {"To", FieldType::kDouble}},
      values);
  std::vector<Employed> people;
  for (; !rows->Eof(); rows->MoveNext()) {
    if (people.empty() || people.back().employee != rows->int32({0})) {
      people.push_back({rows->int32({0}), std::string(rows->text({1}))});
    }
    people.back().positions.emplace_back(rows->number({2}), rows->is_null({3}) ? to.serial() : rows->number({3}));
  }
  return people;
}

// Asks the engine about one person after the other.
class ServiceCount {
 public:
  explicit ServiceCount(Application& application)
      : application_(application), engine_(application.new_data_object(kSalaryExtensionType)) {}

  // Throws quor::Error with the reason where the engine cannot count.
  Service at(std::int32_t employee, Date day) {
    return {ask("GetYearsOfService", employee, day).to_int16(),
            null_to_double(
                ask("GetPersonalExtraChargeComponents", employee, day).record_set()->field("ExtraChargePercentage"))};
  }

 private:
  Variant ask(const char* method, std::int32_t employee, Date day) {
    const HeldNotices notices(application_);
    const MethodResult result = engine_->Methods(method, {employee, day});
    if (!notices.boxes().empty()) throw Error(ErrorKind::kRefused, notices.boxes().front().text);
    if (result.Code != 0) throw Error(ErrorKind::kRefused, result.Message);
    return result.Value;
  }

  Application& application_;
  const std::shared_ptr<QuorObjectUIO> engine_;
};

// The day from which the settings hold that are in force at `at`, where it is a day of the month.
Date settings_since(Company& company, const Month& month) {
  const std::string text = quoted(month.last_day());
  ParameterText parameter(text);
  const auto settings = requests::office_employee_settings(company, parameter);
  const Date from = settings->RecordCount() == 0 ? month.first_day() : null_to_date(settings->field("DateFrom"));
  return std::max(from, month.first_day());
}

// What the month makes of those who pass into another percentage in it.
class Pricing : public MonthTaker {
 public:
  Pricing(StepsAhead& result, const std::vector<ServiceStep*>& steps) : result_(result) {
    for (ServiceStep* const step : steps) step_of_.emplace(step->employee, step);
  }
  void begin(const MonthInputs& /*inputs*/) override {}
  void take(const PersonInput& person, const PersonMonth& month) override {
    ServiceStep& step = *step_of_.at(person.employee);
    const auto tied = std::count_if(person.charges.begin(), person.charges.end(), [](const ChargeInput& charge) {
      return charge.sum <= 0 && names_type(charge.salary_extra_oid);
    });
    const double base = month.document.sum_of(SumType::kBasePay);
    step.paid = tied > 0;
    const double each = round_half_up(base * step.after / 100, 2) - round_half_up(base * step.before / 100, 2);
    step.difference = round_even(static_cast<double>(tied) * each, 2);
    step.over_limit = month.document.check_code == kOverLimit;
  }
  bool take_part(const CalculatedPeople& part) override {
    result_.faults.insert(result_.faults.end(), part.faults.begin(), part.faults.end());
    return true;
  }
  bool take_end() override { return true; }

 private:
  StepsAhead& result_;
  std::map<std::int32_t, ServiceStep*> step_of_;
};

class Looking {
 public:
  Looking(Application& application, const Month& first, int months, const MonthOptions& options)
      : application_(application), company_(application.company()), options_(options) {
    for (Month month = first; months > 0; --months, month = month_after(month)) months_.push_back(month);
  }

  StepsAhead look() {
    read();
    count();
    if (!result_.cancelled) price();
    if (result_.cancelled) result_.steps.clear();
    return std::move(result_);
  }

 private:
  Date before_all() const { return add_days(months_.front().first_day(), -1); }

  // Everything that the engine asks for is of one state of the company; what it reads is kept from then on.
  void read() {
    company_.refresh();
    const Snapshot snapshot(company_.database());
    company_.refresh();
    if (options_.department) require_department(company_, *options_.department);
    people_ = read_employed(company_.database(), months_.front().first_day(), months_.back().last_day(), options_);
    ParameterText none(kNoParameter);
    requests::office_employee_experience(company_, none);
    for (const Month& month : months_) since_.push_back(settings_since(company_, month));
    const std::string text = quoted(before_all());
    ParameterText parameter(text);
    requests::office_employee_settings(company_, parameter);
  }

  void count() {
    ServiceCount service(application_);
    std::int32_t done = 0;
    for (const Employed& person : people_) {
      result_.cancelled = options_.cancelled && options_.cancelled();
      if (result_.cancelled) return;
      try {
        count(person, service);
      } catch (const Error& error) {
        result_.faults.push_back({person.employee, person.name, error.what()});
      }
      if (options_.progress) options_.progress(++done, static_cast<std::int32_t>(people_.size()));
    }
    std::stable_sort(result_.steps.begin(), result_.steps.end(),
                     [](const ServiceStep& one, const ServiceStep& other) { return one.day < other.day; });
  }

  void count(const Employed& person, ServiceCount& service) {
    Service before = service.at(person.employee, before_all());
    for (std::size_t i = 0; i < months_.size(); ++i) {
      const Service now = service.at(person.employee, months_[i].last_day());
      const bool longer = now.years != before.years;
      const Date day = longer ? months_[i].first_day() : since_[i];
      if (now.percentage != before.percentage && person.on(day)) {
        result_.steps.push_back({.employee = person.employee,
                                 .name = person.name,
                                 .day = day,
                                 .years = now.years,
                                 .before = before.percentage,
                                 .after = now.percentage,
                                 .by_settings = !longer});
      }
      before = now;
    }
  }

  // Those of each month together.
  void price() {
    for (const Month& month : months_) {
      std::vector<ServiceStep*> steps;
      MonthOptions these{.cancelled = options_.cancelled};
      for (ServiceStep& step : result_.steps) {
        if (Month::of(step.day) != month) continue;
        steps.push_back(&step);
        these.people.push_back(step.employee);
      }
      if (steps.empty()) continue;
      Pricing pricing(result_, steps);
      result_.cancelled = !calculate_people(application_, month, these, pricing);
      if (result_.cancelled) return;
    }
  }

  Application& application_;
  Company& company_;
  const MonthOptions& options_;
  std::vector<Month> months_;
  std::vector<Date> since_;  // of each month's settings
  std::vector<Employed> people_;
  StepsAhead result_;
};

}  // namespace

StepsAhead steps_ahead(Application& application, const Month& first, int months, const MonthOptions& options) {
  application.guard().require_view(kSalaryExtensionType);
  if (months < 1 || months > kMostStepMonths) {
    throw Error(ErrorKind::kOutOfRange, "Mėnesių skaičius " + std::to_string(months) + " (turi būti nuo 1 iki " +
                                            std::to_string(kMostStepMonths) + ").");
  }
  const RightsGuard::ForProgram asking(application.guard());
  return Looking(application, first, months, options).look();
}

std::string step_remark(const ServiceStep& step) {
  std::string text;
  const auto add = [&](bool holds, const char* remark) {
    if (holds) text += (text.empty() ? "" : ", ") + std::string(remark);
  };
  add(step.over_limit, "viršys ribą");
  add(!step.paid, "priedo už stažą nėra");
  add(step.by_settings, "pasikeitė nustatymai");
  return text;
}

}  // namespace quor
