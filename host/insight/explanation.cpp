#include "host/insight/explanation.h"

#include "host/insight/run_recorder.h"
#include "host/insight/told_pay.h"
#include "host/payroll/closed_month_guard.h"
#include "host/payroll/month_calculation.h"
#include "host/store/object_codes.h"
#include "platform/data/error.h"

namespace quor {

namespace {

// Takes the one person of a run, and looks at the rows that it was read from as long as they are those of the run.
class Explaining : public MonthTaker {
 public:
  Explaining(Database& database, const Month& month, std::int32_t employee, const RunRecorder& recorder)
      : database_(database), recorder_(recorder), explanation_{.employee = employee, .person = {}, .month = month} {}

  void begin(const MonthInputs& inputs) override {
    inputs_ = &inputs;
    calculated_.reset();
    explanation_ = {.employee = explanation_.employee, .person = {}, .month = explanation_.month};
  }

  void take(const PersonInput& /*person*/, const PersonMonth& month) override { calculated_ = month; }

  bool take_part(const CalculatedPeople& part) override {
    const Snapshot snapshot(database_);
    if (database_.pay_inputs_count() != inputs_->count) return false;
    const PersonInput& person = inputs_->people.front();
    explanation_.person = person.name;
    explanation_.calls = recorder_.calls();
    const StoredSources sources(database_);
    for (RecordedCall& call : explanation_.calls) {
      for (RecordedRequest& request : call.requests) request.source = sources.of_request(request);
    }
    explanation_.closed = is_closed(database_, explanation_.month);
    if (!part.faults.empty()) explanation_.fault = part.faults.front().reason;
    const DocumentDifference difference = compare_with_stored(database_, explanation_.month, part);
    explanation_.document = !difference.missing.empty()   ? DocumentState::kMissing
                            : !difference.changed.empty() ? DocumentState::kDifferent
                                                          : DocumentState::kSame;
    if (!calculated_) return true;
    ToldPay told = tell_pay(*inputs_, person, *calculated_, recorder_.calls(), sources);
    explanation_.amounts = std::move(told.amounts);
    explanation_.refused = std::move(told.refused);
    return true;
  }

  bool take_end() override { return true; }

  Explanation result() {
    if (explanation_.person.empty()) refuse();
    return std::move(explanation_);
  }

 private:
  [[noreturn]] void refuse() const {
    const std::string name = StoredSources(database_).employee_name(explanation_.employee);
    throw Error(ErrorKind::kNotFound,
                name.empty() ? "Nėra darbuotojo, kurio numeris " + std::to_string(explanation_.employee) + "."
                             : name + ": mėnesį " + explanation_.month.text() + " pareigų neturi.");
  }

  Database& database_;
  const RunRecorder& recorder_;
  Explanation explanation_;
  const MonthInputs* inputs_ = nullptr;  // while the run lasts
  std::optional<PersonMonth> calculated_;
};

}  // namespace

Explanation explain(Application& application, const Month& month, std::int32_t employee) {
  application.guard().require_view(kSalaryExtensionType);
  RunRecorder recorder;
  Explaining explaining(application.company().database(), month, employee, recorder);
  calculate_people(application, month, {.people = {employee}, .watch = &recorder}, explaining);
  return explaining.result();
}

std::string document_text(const Explanation& explanation) {
  switch (explanation.document) {
    case DocumentState::kSame:
      return "";
    case DocumentState::kMissing:
      return "Mėnesio " + explanation.month.text() + " dokumento nėra: rodoma, kas būtų apskaičiuota dabar.";
    case DocumentState::kDifferent:
      return "Įrašytas " + std::string(explanation.closed ? "uždaryto " : "") +
             "mėnesio dokumentas kitoks: duomenys po "
             "skaičiavimo pasikeitė. Rodoma, kas būtų apskaičiuota dabar.";
  }
  return "";
}

}  // namespace quor
