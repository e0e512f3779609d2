// Length of service, supplements and surcharges.
#include "host/insight/pay_teller.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

// ---- service

void PayTeller::tell_service() {
  const RecordedCall* const call = calls_.last("GetYearsOfService");
  const RecordedRequest* const read = call == nullptr ? nullptr : call->request("GetOfficeEmployeeExperience");
  ExplainedAmount service{
      .what = "Tarnybos stažas", .value = std::to_string(month_.service_years) + " m.", .number = 0};
  service.number = month_.service_years;
  // Where the search finds nobody, the engine is left standing at somebody else.
  if (read == nullptr || null_to_int32(read->row["UserID"]) != person_.employee) {
    Words(service).say(": neįrašytas");
    take(std::move(service), 0);
  } else {
    const Date at = call->parameters.at(1).to_date(), reached = null_to_date(read->row["DateExperience"]);
    const std::int32_t years = null_to_int32(read->row["ExperienceYears"]),
                       months = null_to_int32(read->row["ExperienceMonthes"]);
    const ServiceSteps steps = restate_service(years, months, reached, at);
    service.value += " " + std::to_string(steps.rest) + " mėn.";
    ExplainedAmount recorded{.what = "įrašyta",
                             .value = std::to_string(years) + " m. " + std::to_string(months) + " mėn.",
                             .number = static_cast<double>(years),
                             .source = sources_.service(person_.employee)};
    Words(recorded).say(" iki " + date_text(reached));
    Words(service).say(" = ").link(std::move(recorded));
    Words(service).say(" ir " + std::to_string(steps.months_since) + " mėn. nuo tada iki " + Month::of(at).text());
    take(std::move(service), steps.years);
  }
  tell_percentage(month_.service_years);
}

void PayTeller::tell_percentage(std::int32_t years) {
  const RecordedCall* const call = calls_.last("GetPersonalExtraChargeComponents");
  const RecordedRequest* const read = call == nullptr ? nullptr : call->request("GetOfficeEmployeeSettings");
  ExplainedAmount percentage{.what = "Priedo už tarnybos stažą procentas",
                             .value = percentage_text(month_.supplement_percentage),
                             .number = month_.supplement_percentage};
  if (read == nullptr || read->row["RowGUID"].is_null()) {
    Words(percentage).say(": skalėje nėra eilutės, į kurią patenka " + std::to_string(years) + " m.");
    take(std::move(percentage), 0);
    return;
  }
  const Date from = null_to_date(read->row["DateFrom"]);
  const std::int32_t low = null_to_int32(read->row["YearFrom"]), high = null_to_int32(read->row["YearTo"]);
  const double of_row = null_to_double(read->row["Percentage"]);
  ExplainedAmount row{
      .what = "skalės eilutė",
      .value = "nuo " + std::to_string(low) + " iki " + std::to_string(high) + " m.",
      .number = of_row,
      .source = sources_.scale_row(null_to_int32(read->row["ID"]), null_to_text(read->row["RowGUID"]), from)};
  Words(row).say(" (nustatymai " + from_text(from) + ")");
  Words(percentage).say(" = ").link(std::move(row));
  take(std::move(percentage), low <= years && years < high ? of_row : -1);
}

// ---- supplements

void PayTeller::tell_charge(const ChargeInput& charge) {
  const auto row = std::find_if(document_.salary_rows.begin(), document_.salary_rows.end(),
                                [&](const SalaryRow& each) { return each.extra_charge == charge.id; });
  const double paid = row == document_.salary_rows.end() ? 0 : row->sum;
  const bool by_service = names_type(charge.salary_extra_oid);
  const std::string name = sources_.charge_name(charge.id);
  const char* const usual = by_service ? "Priedas už tarnybos stažą" : "Priedas";
  ExplainedAmount amount{.what = name.empty() ? usual : name, .value = amount_text(paid), .number = paid};
  ExplainedAmount stored{.what = "nurodyta suma",
                         .value = amount_text(charge.sum),
                         .number = charge.sum,
                         .source = sources_.charge(charge.id, person_.employee)};
  const std::string since = stored.source->from ? " (" + from_text(*stored.source->from) + ")" : "";
  if (charge.sum > 0) {
    Words(stored).say(since);
    Words(amount).say(" = ").link(std::move(stored));
    take_paid(std::move(amount), charge.sum);
    return;
  }
  const double percentage = by_service ? month_.supplement_percentage : charge.percentage;
  stored.what = by_service ? "priedas" : "procentas";
  stored.value = by_service ? "už tarnybos stažą" : percentage_text(percentage);
  stored.number = percentage;
  Words(stored).say(since);
  const PercentageSteps steps = restate_percentage(base_, percentage);
  Words words(amount);
  words.say(" = pagrindas " + amount_text(base_) + " x ");
  if (by_service) words.say(percentage_text(percentage) + ", ");
  const std::string mention = by_service ? "" : stored.value + since;
  words.link(std::move(stored), mention);
  if (general_text(steps.product) != general_text(steps.sum))
    words.say(" = " + general_text(steps.product) + ", suapvalinta");
  take_paid(std::move(amount), steps.sum);
}

// ---- surcharges

void PayTeller::tell_surcharge(const SalaryRow& row) {
  const RecordedCall& call = calls_.next("GetSalaryConstant");
  const auto time = std::find_if(document_.time_rows.begin(), document_.time_rows.end(),
                                 [&](const TimeRow& each) { return each.guid == row.time_row_guid; });
  const std::int32_t code = time == document_.time_rows.end() ? 0 : time->time_code;
  ExplainedAmount tariff_read = tariff("bazinis valandinis atlygis", call);
  ExplainedAmount hours{.what = "dirbta", .value = "", .number = 0};
  for (const WorkedTime& each : person_.worked) {
    if (each.time_code != code) continue;
    hours.number += each.hours;
    Words(hours).keep(worked(each));
  }
  hours.value = hours_text(hours.number);
  const SurchargeSteps steps = restate_surcharge(tariff_read.number, first_factor_.number, hours.number);
  ExplainedAmount amount{
      .what = "Priemoka (" + sources_.time_code_name(code) + ")", .value = amount_text(row.sum), .number = row.sum};
  const std::string mention = hours.value;
  Words words(amount);
  words.say(" = ").link(std::move(hours), mention).say(" x ");
  words.link(std::move(tariff_read)).say(" x ").link(first_factor_);
  take_paid(std::move(amount), steps.sum);
}

}  // namespace quor
