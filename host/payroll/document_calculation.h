// One person's month: the document with its time rows and salary rows, from what the engine answers by method name.
#pragma once

#include <memory>
#include <set>

#include "host/application/application.h"
#include "host/payroll/document_settings.h"
#include "host/payroll/month_document.h"
#include "host/payroll/month_inputs.h"
#include "host/payroll/run_watch.h"

namespace quor {

// What holds for everybody in the month.
struct MonthRules {
  Month month;
  double norm_hours;
  std::int32_t basic_time_code;
  std::set<std::int32_t> surcharge_codes;
  std::string fault;  // for which nobody can be calculated
};

// What the engine said of a position, for the printed month.
struct PositionPay : DocumentPosition {
  double base_pay = 0;  // of the worked part
};

struct PersonMonth {
  MonthDocument document;
  std::vector<PositionPay> positions;
  std::int16_t service_years = 0;
  double supplement_percentage = 0;
  double service_supplement = 0;  // what the percentage makes of the base pay
};

class DocumentCalculation {
 public:
  // Belongs into the snapshot that the inputs are read in. It asks an engine of its own, under the eyes of `watch`.
  // Throws StoreError, PluginError without the engine.
  DocumentCalculation(Application& application, const Month& month, const MonthInputs& inputs,
                      RunWatch* watch = nullptr);

  // Throws quor::Error with the reason when the person's data do not allow it: an impossible value, no tariff, no
  // category, a failing method or request. What the engine shows meanwhile is that reason; nobody else is shown it.
  PersonMonth calculate(const PersonInput& person);
  const DocumentSettings& settings() const { return settings_; }

 private:
  MethodResult call(const char* method, const Parameters& parameters);
  Variant ask(const char* method, const Parameters& parameters);
  double month_salary(const PositionPay& pay, double multiplier);
  void add_basic_time(const PersonInput& person, PersonMonth& result);
  void add_supplements(const PersonInput& person, PersonMonth& result);
  void add_other_time(const PersonInput& person, PersonMonth& result);
  void check(MonthDocument& document);
  bool has_worked_the_norm(const PersonInput& person) const;
  void keep_basis(PersonMonth& result) const;
  double basic_hours(const PersonInput& person, const PositionInput& position) const;

  Application& application_;
  std::shared_ptr<QuorObjectUIO> engine_;
  std::shared_ptr<QuorObjectUIO> salary_document_;  // the document as the engine sees it
  MonthRules rules_;
  DocumentSettings settings_;
};

}  // namespace quor
