#include "engine/length_of_service.h"

#include "engine/salary_engine.h"
#include "frame/catalogue.h"
#include "frame/computed_row.h"
#include "platform/data/error.h"

namespace velmora {

using quor::FieldType;
using quor::MethodResult;

double percentage_for_years(std::int16_t years, quor::Recordset* settings) {
  if (settings == nullptr || settings->RecordCount() == 0) return 0.0;
  settings->MoveFirst();
  const std::string guid = catalogue::null_to_text(settings->field("GUID"));
  if (!catalogue::filter_test(settings, "GUID = " + catalogue::quoted(guid) + " AND RowGUID <> Null")) return 0.0;
  for (; !settings->Eof(); settings->MoveNext()) {
    const quor::Variant from = settings->field("YearFrom");
    const quor::Variant to = settings->field("YearTo");
    if (from.is_null() || to.is_null()) continue;
    if (from.to_int16() <= years && years < to.to_int16()) {
      return catalogue::null_to_double(settings->field("Percentage"));
    }
  }
  return 0.0;
}

namespace {

// Not the plug-in's general code: the caller decides whether the person goes without a supplement or is told.
constexpr std::int32_t kNoComponents = 16;

MethodResult no_components(const std::string& cause) {
  const std::string line = quor::kLineBreak;
  return {.Code = kNoComponents,
          .Message = "Kliada!" + line + "GetPersonalExtraChargeComponents:" + line + cause,
          .Value = {}};
}

std::int16_t years_of(quor::Recordset* services, std::int32_t person, quor::Date date) {
  if (!catalogue::filter_test(services, "UserID = " + std::to_string(person))) return 0;
  const RecordedService service{.years = catalogue::null_to_int32(services->field("ExperienceYears")),
                                .months = catalogue::null_to_int32(services->field("ExperienceMonthes")),
                                .reached_on = catalogue::null_to_date(services->field("DateExperience"))};
  return service_years(service, date);
}

}  // namespace

MethodResult UIO0402000::percentage_by_experience(std::int16_t years,
                                                  const std::shared_ptr<quor::Recordset>& settings) {
  return {.Code = 0, .Message = {}, .Value = percentage_for_years(years, settings.get())};
}

MethodResult UIO0402000::years_of_service(std::int32_t person, quor::Date date) {
  const MethodResult& services = request("OfficeEmployeeExperience", quor::kNoParameter);
  if (services.Code != 0) return {.Code = kNoComponents, .Message = services.Message, .Value = {}};
  try {
    return {.Code = 0, .Message = {}, .Value = years_of(services.Value.record_set().get(), person, date)};
  } catch (const quor::Error& fault) {  // what is recorded of the person is no length of service
    return {.Code = kNoComponents, .Message = fault.what(), .Value = {}};
  }
}

MethodResult UIO0402000::personal_extra_charge_components(std::int32_t person, quor::Date date) {
  const MethodResult service = years_of_service(person, date);
  if (service.Code != 0) return no_components(service.Message);
  const std::int16_t years = service.Value.to_int16();

  const MethodResult& settings = request("OfficeEmployeeSettings", catalogue::quoted(date));
  if (settings.Code != 0) return no_components(settings.Message);
  const MethodResult percentage = percentage_by_experience(years, settings.Value.record_set());

  const std::string comment = "Tarnybos stažas datai " + quor::date_text(date) + " (metai): " + std::to_string(years);
  return {.Code = 0,
          .Message = {},
          .Value = computed_row({{{"ExtraChargePercentage", FieldType::kDouble},
                                  percentage.Code == 0 ? percentage.Value : quor::Variant(0.0)},
                                 {{"Comment", FieldType::kText, kComputedTextSize}, comment}})};
}

MethodResult UIO0402000::action_components(const std::string& action) {
  const char* name = action == "SalaryTariff"          ? "Valstybės tarnautojų atlyginimas"
                     : action == "PersonalExtraCharge" ? "Valstybės tarnautojų priedas už tarnybos stažą"
                                                       : nullptr;
  if (name == nullptr) return {.Code = 0, .Message = "No action.", .Value = {}};
  return {
      .Code = 0, .Message = {}, .Value = computed_row({{{"ActionName", FieldType::kText, kComputedTextSize}, name}})};
}

}  // namespace velmora
