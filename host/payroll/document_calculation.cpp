#include "host/payroll/document_calculation.h"

#include <algorithm>
#include <map>

#include "host/application/forwarded_requests.h"
#include "host/company/guid.h"
#include "host/company/working_days.h"
#include "host/objects/salary_document.h"
#include "host/payroll/value_faults.h"
#include "host/requests/parameter_text.h"
#include "host/requests/requests.h"
#include "host/store/object_codes.h"
#include "platform/data/column.h"
#include "platform/data/error.h"
#include "platform/data/number_text.h"
#include "platform/data/quoted_text.h"

namespace quor {

namespace {

std::shared_ptr<Recordset> settings_at(Company& company, Date date) {
  const std::string text = quoted(date);
  ParameterText parameter(text);
  return requests::office_employee_settings(company, parameter);
}

// Tied to the salary extension: the percentage is the length-of-service supplement's.
bool tied(const ChargeInput& charge) { return names_type(charge.salary_extra_oid); }

// What the engine is going to ask for, once for everybody: read here it is of the same state as the other inputs, and a
// connection that fails stops the calculation instead of each person's.
void read_ahead(Company& company, const Month& month, const MonthInputs& inputs) {
  const auto ask = [&](auto* request, const std::string& text) {
    ParameterText parameter(text);
    request(company, parameter);
  };
  std::set<Date> dates = {month.last_day()};
  for (const PersonInput& person : inputs.people) {
    for (const PositionInput& position : person.positions) dates.insert(position.to);
  }
  for (const Date date : dates) {
    ask(requests::salary_constants, quoted(date));
    ask(requests::office_employee_settings, quoted(date));
    ask(requests::office_employee_category, "0," + quoted(date));
  }
  if (inputs.few) return;
  ask(requests::salary_extra_row, quoted("") + "," + quoted(month.last_day()));
  ask(requests::office_employee_experience, kNoParameter);
}

// Answers of a few people what is asked about everybody; passes on the rest.
class RequestsOfFew : public ForwardedRequests {
 public:
  RequestsOfFew(std::shared_ptr<QuorMainBO> requests, std::shared_ptr<const requests::RowsOfPeople> few)
      : ForwardedRequests(std::move(requests)), few_(std::move(few)) {}

  MethodResult RunMethod(const std::string& name, const std::string& parameter, std::int32_t flag) override {
    ParameterText text(parameter);
    if (name == "GetOfficeEmployeeExperience") return {0, {}, few_->office_employee_experience(text)};
    if (name == "GetSalaryExtraRow") return {0, {}, few_->salary_extra_row(text)};
    return ForwardedRequests::RunMethod(name, parameter, flag);
  }

 private:
  const std::shared_ptr<const requests::RowsOfPeople> few_;
};

std::shared_ptr<QuorObjectUIO> new_engine(Application& application, const MonthInputs& inputs, RunWatch* watch) {
  auto engine = application.new_data_object(kSalaryExtensionType, [&](std::shared_ptr<QuorMainBO> requests) {
    if (inputs.few) requests = std::make_shared<RequestsOfFew>(std::move(requests), inputs.few);
    return watch == nullptr ? requests : watch->watch_requests(std::move(requests));
  });
  return watch == nullptr ? engine : watch->watch_calls(std::move(engine));
}

void require(const std::string& fault) {
  if (!fault.empty()) throw Error(ErrorKind::kOutOfRange, fault);
}

// A reason stands in a list, a line each.
std::string one_line(std::string text) {
  std::erase(text, '\r');
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::string row_guid(const MonthDocument& document, const std::string& place) {
  return named_guid(document.guid + "/" + place);
}

}  // namespace

DocumentCalculation::DocumentCalculation(Application& application, const Month& month, const MonthInputs& inputs,
                                         RunWatch* watch)
    : application_(application),
      engine_(new_engine(application, inputs, watch)),
      salary_document_(std::make_shared<SalaryDocument>(application, application.company())),
      rules_{month, inputs.norm_hours, inputs.basic_time_code, inputs.surcharge_codes, inputs.fault},
      settings_(document_settings(settings_at(application.company(), month.last_day()))) {
  read_ahead(application.company(), month, inputs);
}

PersonMonth DocumentCalculation::calculate(const PersonInput& person) {
  require(rules_.fault);
  require(person.fault);
  PersonMonth result;
  MonthDocument& document = result.document;
  document.employee = person.employee;
  document.guid = named_guid(std::to_string(person.employee) + "/" + rules_.month.text());
  engine_->OID(object_key(kSalaryExtensionType, person.positions.front().id));
  add_basic_time(person, result);
  add_supplements(person, result);
  add_other_time(person, result);
  check(document);
  keep_basis(result);
  return result;
}

// A request that fails is shown by the engine, which may go on as if there were no such data: what it shows first is
// what went wrong.
MethodResult DocumentCalculation::call(const char* method, const Parameters& parameters) {
  const HeldNotices notices(application_);
  MethodResult result = engine_->Methods(method, parameters);
  if (!notices.boxes().empty()) throw Error(ErrorKind::kRefused, one_line(notices.boxes().front().text));
  return result;
}

// What a method of the engine answers: a value, or a record set of one row.
Variant DocumentCalculation::ask(const char* method, const Parameters& parameters) {
  const MethodResult result = call(method, parameters);
  if (result.Code != 0) throw Error(ErrorKind::kRefused, one_line(result.Message));
  return result.Value;
}

double DocumentCalculation::month_salary(const PositionPay& pay, double multiplier) {
  return call("GetMonthSalaryValue", {pay.tariff, pay.factor, multiplier}).Value.to_double();
}

void DocumentCalculation::add_basic_time(const PersonInput& person, PersonMonth& result) {
  MonthDocument& document = result.document;
  for (const PositionInput& position : person.positions) {
    const Date date = position.to;  // a position that ends within the month is in force no longer on its last day
    const auto parts = ask("GetSalaryComponents", {salary_document_, position.key, std::int16_t{0}, date}).record_set();
    PositionPay pay{{.category = null_to_text(parts->field("TariffFactorName")),
                     .factor = null_to_double(parts->field("TariffFactorValue")),
                     .tariff = null_to_double(parts->field("ConstantValue")),
                     .share = position.share}};
    if (pay.tariff == 0) throw Error(ErrorKind::kNotFound, "nėra bazinės algos datai " + date_text(date));
    if (null_to_int32(parts->field("TariffFactorID")) == 0) {
      throw Error(ErrorKind::kNotFound, "nėra pareigybės kategorijos koeficiento datai " + date_text(date));
    }
    require(value_fault("bazinė alga", pay.tariff, kTariff));
    require(value_fault("kategorijos „" + pay.category + "“ koeficientas", pay.factor, kFactor));
    const double hours = basic_hours(person, position);
    const double worked_part = hours / rules_.norm_hours;
    pay.month_salary = month_salary(pay, position.share);
    pay.base_pay = worked_part == 1 ? pay.month_salary : month_salary(pay, position.share * worked_part);
    result.positions.push_back(pay);
    if (hours == 0) continue;

    const std::string place = std::to_string(document.time_rows.size());
    document.time_rows.push_back(
        {row_guid(document, "t" + place), engine_->OID(), position.id, rules_.basic_time_code, hours});
    document.salary_rows.push_back({.guid = row_guid(document, "s" + place),
                                    .time_row_guid = document.time_rows.back().guid,
                                    .type = SumType::kBasePay,
                                    .sum = pay.base_pay});
  }
}

// Without worked time, and with surcharges beside the usual time alone, the whole norm is worked. Other time is taken
// from the basic time, which must then be told: 0 hours of it for who has not worked at all.
bool DocumentCalculation::has_worked_the_norm(const PersonInput& person) const {
  bool other = false;
  for (const WorkedTime& worked : person.worked) {
    if (worked.time_code == rules_.basic_time_code) return false;
    other = other || !rules_.surcharge_codes.contains(worked.time_code);
  }
  if (other) throw Error(ErrorKind::kNotFound, "yra kitų laiko kodų, bet nėra FD");
  return true;
}

// Hours of the basic code within the position's days; hours of a whole month are spread over its working days.
double DocumentCalculation::basic_hours(const PersonInput& person, const PositionInput& position) const {
  const Month& month = rules_.month;
  const int all_days = working_days(month.first_day(), month.last_day());
  const double in_force = static_cast<double>(working_days(position.from, position.to)) / all_days;
  if (has_worked_the_norm(person)) return rules_.norm_hours * in_force;
  double hours = 0;
  for (const WorkedTime& worked : person.worked) {
    if (worked.time_code != rules_.basic_time_code) continue;
    if (!worked.day) {
      hours += worked.hours * in_force;
    } else if (position.from <= *worked.day && *worked.day <= position.to) {
      hours += worked.hours;
    }
  }
  return hours;
}

// A charge above 0 is a fixed sum; otherwise it is a percentage of the base pay: the service's, or its own.
void DocumentCalculation::add_supplements(const PersonInput& person, PersonMonth& result) {
  MonthDocument& document = result.document;
  const Parameters of_person = {person.employee, rules_.month.last_day()};
  result.supplement_percentage =
      null_to_double(ask("GetPersonalExtraChargeComponents", of_person).record_set()->field("ExtraChargePercentage"));
  result.service_years = ask("GetYearsOfService", of_person).to_int16();
  const double base = document.sum_of(SumType::kBasePay);
  result.service_supplement = round_half_up(base * result.supplement_percentage / 100, 2);
  for (const ChargeInput& charge : person.charges) {
    SalaryRow row{.guid = row_guid(document, "c" + std::to_string(charge.id)),
                  .time_row_guid = {},
                  .type = SumType::kSupplement,
                  .sum = charge.sum,
                  .percentage = 0,
                  .extra_charge = charge.id,
                  .salary_code = charge.salary_code};
    if (charge.sum <= 0) {
      row.percentage = tied(charge) ? result.supplement_percentage : charge.percentage;
      row.sum = round_half_up(base * row.percentage / 100, 2);
    }
    if (row.sum != 0) document.salary_rows.push_back(row);
  }
}

// Every other time code is one time row; those that the settings list earn a surcharge at the hour tariff by the factor
// of the first position.
void DocumentCalculation::add_other_time(const PersonInput& person, PersonMonth& result) {
  std::map<std::int32_t, double> hours_of_code;
  for (const WorkedTime& worked : person.worked) {
    if (worked.time_code != rules_.basic_time_code) hours_of_code[worked.time_code] += worked.hours;
  }
  MonthDocument& document = result.document;
  for (const auto& [code, hours] : hours_of_code) {
    const std::string place = "o" + std::to_string(code);
    document.time_rows.push_back({row_guid(document, "t" + place), engine_->OID(), 0, code, hours});
    if (!rules_.surcharge_codes.contains(code)) continue;
    const Date date = rules_.month.last_day();
    const double tariff =
        null_to_double(ask("GetSalaryConstant", {std::int16_t{1}, date}).record_set()->field("ConstantValue"));
    if (tariff == 0) throw Error(ErrorKind::kNotFound, "nėra bazinio valandinio atlygio datai " + date_text(date));
    require(value_fault("bazinis valandinis atlygis", tariff, kTariff));
    document.salary_rows.push_back({.guid = row_guid(document, "s" + place),
                                    .time_row_guid = document.time_rows.back().guid,
                                    .type = SumType::kSurcharge,
                                    .sum = round_half_up(tariff * result.positions.front().factor * hours, 2)});
  }
}

void DocumentCalculation::check(MonthDocument& document) {
  std::vector<ColumnData> times(3, ColumnData({"GUID", FieldType::kText}));
  times[1] = ColumnData({"SalaryExtraOID", FieldType::kText});
  times[2] = ColumnData({"SalaryTimeCodeID", FieldType::kInt32});
  for (const TimeRow& row : document.time_rows) {
    times[0].append(row.guid);
    times[1].append(row.salary_extra_oid);
    times[2].append(row.time_code);
  }
  std::vector<ColumnData> sums(3, ColumnData({"TimeRowGUID", FieldType::kText}));
  sums[1] = ColumnData({"SumA", FieldType::kDouble});
  sums[2] = ColumnData({"PersonalExtraChargeID", FieldType::kInt32});
  for (const SalaryRow& row : document.salary_rows) {
    sums[0].append(row.time_row_guid);
    sums[1].append(row.sum);
    sums[2].append(row.extra_charge);
  }
  const MethodResult result =
      call("CheckSalaryRows", {Recordset::from_columns(std::move(times)), Recordset::from_columns(std::move(sums)),
                               rules_.month.last_day(), rules_.basic_time_code});
  document.check_code = result.Code;
  document.check_message = result.Message;
}

// What the sums were made from stays with the document.
void DocumentCalculation::keep_basis(PersonMonth& result) const {
  MonthDocument& document = result.document;
  for (const PositionPay& pay : result.positions) {
    document.positions.push_back(pay);
  }
  document.service_years = result.service_years;
  document.supplement_percentage = result.supplement_percentage;
  document.settings_guid = settings_.guid;
}

}  // namespace quor
