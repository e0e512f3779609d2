// Positions and the time worked in them.
#include "host/insight/pay_teller.h"
#include "platform/data/number_text.h"

namespace quor {

// ---- positions

// The constant as it was read, since when it holds, and the settings that name it where the position has none of its
// own.
ExplainedAmount PayTeller::tariff(const char* what, const RecordedCall& call) const {
  ExplainedAmount amount{.what = what, .value = amount_text(0), .number = 0};
  if (const RecordedRequest* const read = call.request("GetSalaryConstants"); read != nullptr && !read->row.empty()) {
    const Date from = null_to_date(read->row["DateFrom"]);
    amount.number = null_to_double(read->row["ConstantValue"]);
    amount.value = amount_text(amount.number);
    amount.source = sources_.constant_value(null_to_int32(read->row["ConstantTypeID"]), from);
    Words(amount).say(" (" + from_text(from) + ")");
  }
  const RecordedRequest* const settings = call.request("GetOfficeEmployeeSettings");
  if (settings != nullptr && !settings->row.empty()) {
    const Date from = null_to_date(settings->row["DateFrom"]);
    Words(amount).keep({.what = "dydis parinktas nustatymuose",
                        .value = from_text(from),
                        .source = sources_.settings(null_to_int32(settings->row["ID"]), from)});
  }
  return amount;
}

ExplainedAmount PayTeller::factor(const RecordedCall& call) const {
  ExplainedAmount amount{.what = "koeficientas", .value = general_text(0), .number = 0};
  const RecordedRequest* const read = call.request("GetOfficeEmployeeCategory");
  if (read == nullptr || read->row.empty()) return amount;
  const Date from = null_to_date(read->row["DateFrom"]);
  amount.number = null_to_double(read->row["Factor"]);
  amount.value = general_text(amount.number);
  amount.source = sources_.category_row(null_to_int32(read->row["ID"]), from);
  Words(amount).say(" (" + null_to_text(read->row["Name"]) + ", " + from_text(from) + ")");
  return amount;
}

// Which of several positions.
std::string PayTeller::of_position(std::size_t at) const {
  return person_.positions.size() == 1 ? "" : " (" + std::to_string(at + 1) + "-oji pareigybė)";
}

void PayTeller::tell_position(std::size_t at) {
  const PositionInput& position = person_.positions[at];
  const PositionPay& pay = month_.positions[at];
  const RecordedCall& parts = calls_.next("GetSalaryComponents");
  const RecordedCall& answer = calls_.next("GetMonthSalaryValue");
  ExplainedAmount tariff_read = tariff("bazinė alga", parts), factor_read = factor(parts);
  const MonthSalarySteps steps = restate_month_salary(tariff_read.number, factor_read.number, position.share);
  if (at == 0) first_factor_ = factor_read;
  ExplainedAmount share{.what = "etato dalis",
                        .value = general_text(position.share),
                        .number = position.share,
                        .source = sources_.position(position.id, person_.employee)};
  const std::string of_post = share.value + (position.share == 1 ? " etatas" : " etato");
  ExplainedAmount salary{.what = "Pareiginė alga" + of_position(at),
                         .value = amount_text(pay.month_salary),
                         .number = answer.value.to_double()};
  Words words(salary);
  words.say(" = ").link(std::move(tariff_read)).say(" x ").link(std::move(factor_read));
  words.say(" = " + amount_text(steps.product));
  const std::string whole = general_text(steps.whole);
  if (general_text(steps.product) != whole) words.say(", suapvalinta " + whole);
  words.say(", paskutinis skaitmuo " + std::to_string(steps.last_digit) + ", todėl " + general_text(steps.five_fold) +
            " x ");
  words.link(std::move(share), of_post);
  take(std::move(salary), steps.sum);
  tell_worked_part(at, steps.five_fold);
}

// ---- worked time

std::vector<const WorkedTime*> PayTeller::basic_time(const PositionInput& position) const {
  std::vector<const WorkedTime*> times;
  for (const WorkedTime& each : person_.worked) {
    const bool of_position = !each.day || (position.from <= *each.day && *each.day <= position.to);
    if (each.time_code == inputs_.basic_time_code && of_position) times.push_back(&each);
  }
  return times;
}

ExplainedAmount PayTeller::worked(const WorkedTime& time) const {
  const Month month = Month::of(person_.positions.front().from);
  return {.what = time.day ? date_text(*time.day) : "mėnesio",
          .value = hours_text(time.hours),
          .number = time.hours,
          .source = sources_.worked_time(person_.employee, month, time.time_code, time.day)};
}

ExplainedAmount PayTeller::norm() const {
  const Month month = Month::of(person_.positions.front().from);
  ExplainedAmount amount{.what = "norma", .value = hours_text(inputs_.norm_hours), .number = inputs_.norm_hours};
  amount.source = sources_.norm(month);
  if (amount.source->id == 0) Words(amount).say(" (pagal kalendorių)");
  return amount;
}

ExplainedAmount PayTeller::hours(const PositionInput& position, const WorkedPartSteps& steps,
                                 const std::vector<const WorkedTime*>& worked_time) const {
  ExplainedAmount amount{.what = "dirbta", .value = hours_text(steps.hours), .number = steps.hours};
  const bool whole_month = steps.days == steps.all_days;
  const std::string days =
      " x " + std::to_string(steps.days) + " iš " + std::to_string(steps.all_days) + " darbo dienų";
  Words words(amount);
  if (worked_time.empty()) {
    words.say(" = ").link(norm()).say(whole_month ? "" : days);
    if (!whole_month) {
      words.say(" (" + from_text(position.from) + " iki " + date_text(position.to) + ")");
    }
    return amount;
  }
  const bool sum = worked_time.size() > 1;
  words.say(sum ? " = " + std::to_string(worked_time.size()) + " įrašų suma" : " = ");
  for (const WorkedTime* const each : worked_time) {
    if (sum) {
      words.keep(worked(*each));
    } else {
      words.link(worked(*each)).say(!each->day && !whole_month ? days : "");
    }
  }
  return amount;
}

// The pay of the hours that were worked, which is the salary itself for the whole norm.
void PayTeller::tell_worked_part(std::size_t at, double five_fold) {
  const PositionInput& position = person_.positions[at];
  const PositionPay& pay = month_.positions[at];
  const bool any_basic = std::any_of(person_.worked.begin(), person_.worked.end(),
                                     [&](const WorkedTime& each) { return each.time_code == inputs_.basic_time_code; });
  const std::vector<const WorkedTime*> times = basic_time(position);
  std::vector<HoursOfTime> stored;
  for (const WorkedTime* const each : times) stored.push_back({each->hours, !each->day});
  if (any_basic && stored.empty()) stored.push_back({0, false});  // worked on other days than the position's
  const WorkedPartSteps steps =
      restate_worked_part(position.from, position.to, inputs_.norm_hours, stored, position.share);
  const bool whole = steps.part == 1;
  const double restated = restate_month_salary(pay.tariff, pay.factor, steps.multiplier).sum;
  if (!whole) calls_.next("GetMonthSalaryValue");
  ExplainedAmount base{
      .what = "Už dirbtą laiką" + of_position(at), .value = amount_text(pay.base_pay), .number = pay.base_pay};
  Words words(base);
  if (whole) {
    words.say(" = pareiginė alga " + amount_text(pay.month_salary) + ", išdirbta visa ").link(norm());
    if (!times.empty()) words.say(", ").link(hours(position, steps, times));
  } else {
    words.say(" = " + general_text(five_fold) + " x " + general_text(position.share) +
              (position.share == 1 ? " etatas x " : " etato x "));
    words.link(hours(position, steps, times)).say(" / ").link(norm());
  }
  const bool in_document = steps.hours == 0 || (next_row_ < document_.time_rows.size() &&
                                                document_.time_rows[next_row_].position == position.id &&
                                                document_.time_rows[next_row_].hours == steps.hours);
  if (steps.hours != 0) ++next_row_;
  if (in_document) {
    take_paid(std::move(base), restated);
  } else {
    told_.refused.push_back(base.what + ": atkartojus skaičiavimą išeina " + hours_text(steps.hours) + ".");
  }
}

}  // namespace quor
