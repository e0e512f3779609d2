// The engine's methods by name: how the parameters of each convert, and what runs. An unknown name gives an empty
// result; a parameter that is missing or does not convert throws quor::Error before the method runs.
#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "engine/month_salary.h"
#include "engine/salary_engine.h"
#include "platform/data/error.h"

namespace velmora {

namespace {

using quor::MethodResult;

// The parameters of one call, by position, each converted when it is read.
class Arguments {
 public:
  explicit Arguments(const quor::Parameters& values) : values_(values) {}

  std::size_t count() const { return values_.size(); }
  std::int16_t int16(std::size_t i) const { return at(i).to_int16(); }
  std::int32_t int32(std::size_t i) const { return at(i).to_int32(); }
  double number(std::size_t i) const { return at(i).to_double(); }
  quor::Date date(std::size_t i) const { return at(i).to_date(); }
  std::string text(std::size_t i) const { return at(i).to_text(); }
  bool boolean(std::size_t i) const { return at(i).to_bool(); }
  const std::shared_ptr<quor::Recordset>& record_set(std::size_t i) const { return at(i).record_set(); }

  template <typename T>
  std::shared_ptr<T> object(std::size_t i) const {
    auto object = quor::to_object<T>(at(i));
    if (!object) throw quor::Error(quor::ErrorKind::kObjectMissing, which(i) + " yra tuščia objekto nuoroda.");
    return object;
  }

 private:
  static std::string which(std::size_t i) { return "Parametras Nr. " + std::to_string(i); }

  const quor::Variant& at(std::size_t i) const {
    if (i < values_.size()) return values_[i];
    throw quor::Error(quor::ErrorKind::kIndexOutOfRange, which(i) + " nepateiktas.");
  }

  const quor::Parameters& values_;
};

MethodResult answer(quor::Variant value) { return {.Code = 0, .Message = {}, .Value = std::move(value)}; }

MethodResult wrong_parameters(const std::string& name) {
  return {.Code = quor::kPluginFailure,
          .Message = "Method " + name + ":" + quor::kLineBreak + "Klaidingi parametrai!",
          .Value = {}};
}

MethodResult salary_components(UIO0402000& engine, const Arguments& in) {
  if (in.count() != 4) return wrong_parameters("GetSalaryComponents");
  const auto document = in.object<quor::QuorObjectUIO>(0);
  const std::string key = in.text(1);
  const bool hourly = in.int16(2) != 0;
  return engine.salary_components(*document, key, hourly, in.date(3));
}

MethodResult salary_constant(UIO0402000& engine, const Arguments& in) {
  if (in.count() != 2 && in.count() != 3) return wrong_parameters("GetSalaryConstant");
  const bool hourly = in.int16(0) != 0;
  const quor::Date date = in.date(1);
  return engine.salary_constant(hourly, date, in.count() == 3 ? in.int32(2) : 0);
}

// The last two play no part, but must convert.
MethodResult handle_select_event(UIO0402000& engine, const Arguments& in) {
  const quor::Date date = in.date(0);
  const std::int32_t constant_id = in.int32(1);
  const double constant_value = in.number(2);
  const std::int32_t category = in.int32(3);
  in.number(4);
  in.text(5);
  return engine.handle_select_event(date, constant_id, constant_value, category);
}

struct Method {
  std::string_view name;
  MethodResult (*run)(UIO0402000& engine, const Arguments& in);
};

// Parameters convert from left to right, so that the first one at fault is the one that is named.
constexpr Method kMethods[] = {
    {"GetMMACode", [](UIO0402000&, const Arguments&) { return answer("MMA_VT"); }},
    {"GetMVACode", [](UIO0402000&, const Arguments&) { return answer("MVA_VT"); }},
    {"GetPercentageByExperience",
     [](UIO0402000&, const Arguments& in) {
       const std::int16_t years = in.int16(0);
       return UIO0402000::percentage_by_experience(years, in.record_set(1));
     }},
    {"GetYearsOfService",
     [](UIO0402000& engine, const Arguments& in) {
       const std::int32_t person = in.int32(0);
       return engine.years_of_service(person, in.date(1));
     }},
    {"GetPersonalExtraChargeComponents",
     [](UIO0402000& engine, const Arguments& in) {
       const std::int32_t person = in.int32(0);
       return engine.personal_extra_charge_components(person, in.date(1));
     }},
    {"GetActionComponents", [](UIO0402000&, const Arguments& in) { return UIO0402000::action_components(in.text(0)); }},
    {"GetSalaryComponents", salary_components},
    {"GetMonthSalaryValue",
     [](UIO0402000&, const Arguments& in) {
       const double factors[] = {in.number(0), in.number(1), in.number(2)};
       return answer(month_salary(factors[0], factors[1], factors[2]));
     }},
    {"GetSalaryComponentsByID",
     [](UIO0402000& engine, const Arguments& in) {
       const std::int32_t row_id = in.int32(0);
       const bool hourly = in.int16(1) != 0;
       return engine.salary_components_by_id(row_id, hourly, in.date(2));
     }},
    {"GetSalaryConstant", salary_constant},
    {"GetExtraUIOByGUID",
     [](UIO0402000& engine, const Arguments& in) {
       const std::string row_id = in.text(0);
       return engine.extra_uio_by_guid(row_id, in.date(1));
     }},
    {"CheckExtraComponents",
     [](UIO0402000&, const Arguments& in) {
       return UIO0402000::check_extra_components(*in.object<quor::NamedMembers>(0));
     }},
    {"CheckSalaryRows",
     [](UIO0402000& engine, const Arguments& in) {
       const auto& time_rows = in.record_set(0);
       const auto& salary_rows = in.record_set(1);
       const quor::Date date = in.date(2);
       return engine.check_salary_rows(time_rows, salary_rows, date, in.int32(3));
     }},
    {"HandleSelectEvent", handle_select_event},
    {"FillExtraUIOFields",
     [](UIO0402000& engine, const Arguments& in) {
       const auto source = in.object<quor::NamedMembers>(0);
       const std::string record_id = in.text(1);
       return engine.fill_extra_uio_fields(*source, record_id, in.boolean(2));
     }},
};

constexpr bool names_differ() {
  for (auto one = std::begin(kMethods); one != std::end(kMethods); ++one) {
    for (auto other = std::next(one); other != std::end(kMethods); ++other) {
      if (one->name == other->name) return false;
    }
  }
  return true;
}
static_assert(names_differ(), "two methods of one name: the second would never run");

std::shared_ptr<quor::Recordset> method_names() {
  auto names = std::make_shared<quor::Recordset>();
  names->Fields().Append("Name", quor::FieldType::kText);
  names->Open();
  for (const Method& method : kMethods) {
    names->AddNew();
    names->Fields()["Name"].Value(std::string(method.name));
  }
  names->Update();
  names->MoveFirst();
  return names;
}

}  // namespace

MethodResult UIO0402000::Properties(const std::string& name, const std::string& parameter) {
  if (name == quor::kMethodNames) return {.Code = 0, .Message = {}, .Value = method_names()};
  return ForwardingObject::Properties(name, parameter);
}

MethodResult UIO0402000::Methods(const std::string& name, const quor::Parameters& parameters) {
  const auto* method = std::find_if(std::begin(kMethods), std::end(kMethods),
                                    [&](const Method& candidate) { return candidate.name == name; });
  if (method == std::end(kMethods)) return {};
  MethodResult result = method->run(*this, Arguments(parameters));
  if (result.Code == quor::kPluginFailure) show_failure(result.Message);
  return result;
}

}  // namespace velmora
