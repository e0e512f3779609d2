#include "host/insight/rules/rule_bench.h"

#include "host/application/forwarded_requests.h"
#include "host/company/time_code.h"
#include "host/payroll/month_calculation.h"
#include "host/store/object_codes.h"
#include "host/store/tables/table_rows.h"
#include "platform/data/error.h"

namespace quor {

// A company in memory with the application around it.
struct RuleBench::Place {
  explicit Place(const PluginLoader& load) { load(application); }

  Company company{Database::create(":memory:")};
  Application application{company, {}};
};

namespace {

// Answers from the facts what they hold; passes on the rest.
class AnsweredRequests : public ForwardedRequests {
 public:
  AnsweredRequests(std::shared_ptr<QuorMainBO> requests, std::shared_ptr<const RuleBench::Answers> answers)
      : ForwardedRequests(std::move(requests)), answers_(std::move(answers)) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override {
    const auto found = answers_->find(name);
    if (found != answers_->end()) return {0, {}, found->second->Clone()};
    return ForwardedRequests::RunMethod(name, parameter, flag);
  }

 private:
  const std::shared_ptr<const RuleBench::Answers> answers_;
};

void add(Database& database, const char* table, const std::vector<std::string>& columns,
         const std::vector<Variant>& values) {
  TableRows rows(table, columns);
  rows.append_row(values);
  rows.insert_into(database);
}

// Everything has the ID 1 and holds from the first day that a company knows.
constexpr std::int32_t kOnly = 1;

void fill(Database& database, const RulePerson& person) {
  const Date start = first_stored_date(), month = person.month.first_day();
  Transaction transaction(database);
  add(database, "departments", {"id", "name", "sort_key", "row_version"}, {kOnly, "Taisyklės", "", 1});
  add(database, "employees", {"id", "department_id", "name", "sort_key", "row_version"},
      {kOnly, kOnly, "Atvejis", "", 1});
  add(database, "constant_types", {"id", "code", "name", "row_version"}, {kOnly, "MMA_VT", "Bazinė alga", 1});
  add(database, "constant_values", {"id", "constant_type_id", "date_from", "value"},
      {kOnly, kOnly, start, person.tariff});
  add(database, "indications", {"id", "indication_code", "code_id", "code", "code_name", "row_version"},
      {kOnly, kWorkTime, kOnly, kBasicTimeCode, "Dirbtas laikas", 1});
  add(database, "categories", {"id", "guid", "name", "row_version"}, {kOnly, "C1", "Kategorija", 1});
  add(database, "category_rows", {"id", "guid", "category_id", "date_from", "factor"},
      {kOnly, "R1", kOnly, start, person.factor});
  add(database, "settings", {"id", "guid", "date_from", "base_month_tariff_id", "row_version"},
      {kOnly, "S1", start, kOnly, 1});
  add(database, "positions",
      {"id", "employee_id", "contract_guid", "norm_guid", "category_id", "share", "date_from", "date_to",
       "row_version"},
      {kOnly, kOnly, "K1", "N1", kOnly, person.share, person.from.value_or(start),
       person.to ? Variant(*person.to) : Variant(kNull), 1});
  add(database, "month_norms", {"month", "hours"}, {month, person.norm_hours});
  if (person.worked_hours) {
    add(database, "worked_time", {"id", "employee_id", "month", "day", "time_code_id", "hours"},
        {kOnly, kOnly, month, kNull, kOnly, *person.worked_hours});
  }
  if (person.charge_percentage != 0 || person.charge_sum != 0) {
    add(database, "extra_charges", {"id", "guid", "employee_id", "sum_a", "percentage", "row_version"},
        {kOnly, "E1", kOnly, person.charge_sum, person.charge_percentage, 1});
  }
  transaction.commit();
}

class OnePerson : public MonthTaker {
 public:
  void begin(const MonthInputs& /*inputs*/) override {}
  void take(const PersonInput& /*person*/, const PersonMonth& month) override { month_ = month; }
  bool take_part(const CalculatedPeople& part) override {
    if (!part.faults.empty()) throw Error(ErrorKind::kRefused, part.faults.front().reason);
    return true;
  }
  bool take_end() override { return true; }

  PersonMonth result(const Month& month) {
    if (!month_) throw Error(ErrorKind::kNotFound, "mėnesį " + month.text() + " pareigybė negalioja");
    return std::move(*month_);
  }

 private:
  std::optional<PersonMonth> month_;
};

}  // namespace

RuleBench::RuleBench(const PluginLoader& load)
    : place_(std::make_unique<Place>(load)), answers_(std::make_shared<Answers>()) {
  engine_ = place_->application.new_data_object(kSalaryExtensionType, [this](std::shared_ptr<QuorMainBO> requests) {
    return std::make_shared<AnsweredRequests>(std::move(requests), answers_);
  });
  engine_->OID(kDocument);
}

RuleBench::~RuleBench() = default;

MethodResult RuleBench::ask(const std::string& method, const Parameters& parameters, Answers answers,
                            bool codes_answer) {
  const HeldNotices notices(place_->application);
  *answers_ = std::move(answers);
  MethodResult result = engine_->Methods(method, parameters);
  answers_->clear();
  if (!notices.boxes().empty()) throw Error(ErrorKind::kRefused, notices.boxes().front().text);
  if (result.Code != 0 && !codes_answer) throw Error(ErrorKind::kRefused, result.Message);
  return result;
}

PersonMonth RuleBench::month_of(const RulePerson& person) {
  Place place([this](Application& application) {
    for (const std::string& file : place_->application.plugin_files()) application.load_plugin(file);
  });
  fill(place.company.database(), person);
  OnePerson taker;
  calculate_people(place.application, person.month, {}, taker);
  return taker.result(person.month);
}

}  // namespace quor
