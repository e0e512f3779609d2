#include "forms/preview/salary_charges.h"

#include "frame/contract/over_limit.h"
#include "platform/data/number_text.h"

namespace velmora {

namespace {
constexpr std::int32_t kSupplement = 1;
constexpr std::int32_t kSurcharge = 2;
}  // namespace

void PersonCharges::take(const ChargeRecord& record) {
  pay = record.pay;
  if (record.sum_type == kSupplement) {
    supplement = record.sum;
    supplement_percentage = record.percentage;
  } else if (record.sum_type == kSurcharge) {
    surcharge = record.sum;
    surcharge_percentage = record.percentage;
  }
}

double PersonCharges::total_percentage() const {
  return quor::is_no_base(pay) ? 0 : quor::round_even(total() / pay * 100, 2);
}

std::string limit_caption(double limit) { return "% (iki " + quor::general_text(limit) + "%)"; }

}  // namespace velmora
