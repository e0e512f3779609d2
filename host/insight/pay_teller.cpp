#include "host/insight/pay_teller.h"

#include <array>

#include "frame/contract/over_limit.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

struct Limit {
  const char* what;
  const char* of;        // whose sum it limits
  const char* field;     // of the settings
  const char* exceeded;  // how the check begins to say that it is exceeded
  bool supplements, surcharges;
};
constexpr std::array kLimits = {
    Limit{"Priedų riba", "priedai", "ExtraChargePercentage", "Priedų suma viršija ", true, false},
    Limit{"Priemokų riba", "priemokos", "SurChargePercentage", "Priemokų suma viršija ", false, true},
    Limit{"Priedų ir priemokų riba", "priedai ir priemokos", "TotalChargePercentage",
          "Priedų ir priemokų suma viršija ", true, true}};

}  // namespace

ToldPay PayTeller::tell() {
  for (std::size_t i = 0; i < person_.positions.size(); ++i) tell_position(i);
  tell_service();
  for (const ChargeInput& charge : person_.charges) tell_charge(charge);
  for (const SalaryRow& row : document_.salary_rows) {
    if (row.type == SumType::kSurcharge) tell_surcharge(row);
  }
  tell_limits();
  tell_total();
  return std::move(told_);
}

void PayTeller::take(ExplainedAmount amount, double restated) {
  if (restated == amount.number) {
    told_.amounts.push_back(std::move(amount));
  } else {
    told_.refused.push_back(amount.what + " " + amount.value + ": atkartojus skaičiavimą išeina " +
                            general_text(restated) + ".");
  }
}

void PayTeller::take_paid(ExplainedAmount amount, double restated) {
  paid_ += amount.number;
  take(std::move(amount), restated);
}

// Of each limit that there is: the part, its share of the base, and by how much it is over. The first that is exceeded
// is the one that the check has named.
void PayTeller::tell_limits() {
  const RecordedCall* const check = calls_.last("CheckSalaryRows");
  const RecordedRequest* const read = check == nullptr ? nullptr : check->request("GetOfficeEmployeeSettings");
  if (read == nullptr || read->row.empty() || is_no_base(base_)) return;
  const Date from = null_to_date(read->row["DateFrom"]);
  // The check leaves a kind without a limit of its own out of the limit of both.
  const bool counted[] = {null_to_double(read->row[kLimits[0].field]) > 0,
                          null_to_double(read->row[kLimits[1].field]) > 0};
  std::string said;
  std::vector<ExplainedAmount> amounts;
  for (const Limit& limit : kLimits) {
    const double percentage = null_to_double(read->row[limit.field]);
    if (percentage <= 0) continue;
    const double part = (limit.supplements && counted[0] ? document_.sum_of(SumType::kSupplement) : 0) +
                        (limit.surcharges && counted[1] ? document_.sum_of(SumType::kSurcharge) : 0);
    ExplainedAmount amount{.what = limit.what,
                           .value = percentage_text(percentage),
                           .number = percentage,
                           .warns = share_exceeds(part, base_, percentage)};
    ExplainedAmount stored{.what = "nustatymai",
                           .value = from_text(from),
                           .source = sources_.settings(null_to_int32(read->row["ID"]), from)};
    Words words(amount);
    words.say(" (")
        .link(std::move(stored))
        .say("): " + std::string(limit.of) + " " + amount_text(part) + " yra " +
             fixed_text(percentage_of(part, base_), 2) + " % pagrindo " + amount_text(base_));
    if (amount.warns) {
      const double most = base_ * percentage / 100;
      words.say(", viršyta " + amount_text(round_even(part - most, 2)));
      if (said.empty()) said = "CheckSalaryRows: " + std::string(limit.exceeded) + general_text(percentage) + "%!";
    }
    amounts.push_back(std::move(amount));
  }
  if (said == document_.check_message && (document_.check_code == kOverLimit) == !said.empty()) {
    std::move(amounts.begin(), amounts.end(), std::back_inserter(told_.amounts));
  } else {
    told_.refused.push_back("Ribos: patikra sako „" + document_.check_message + "“, atkartojus išeina „" + said + "“.");
  }
}

void PayTeller::tell_total() {
  const double supplements = document_.sum_of(SumType::kSupplement), surcharges = document_.sum_of(SumType::kSurcharge),
               total = round_even(base_ + supplements + surcharges, 2);
  ExplainedAmount amount{.what = "Iš viso", .value = amount_text(total), .number = total};
  Words(amount).say(" = už dirbtą laiką " + amount_text(base_) + " + priedai " + amount_text(supplements) +
                    " + priemokos " + amount_text(surcharges));
  take(std::move(amount), told_.refused.empty() ? round_even(paid_, 2) : total);
}

ToldPay tell_pay(const MonthInputs& inputs, const PersonInput& person, const PersonMonth& month,
                 const std::vector<RecordedCall>& calls, const StoredSources& sources) {
  return PayTeller(inputs, person, month, calls, sources).tell();
}

}  // namespace quor
