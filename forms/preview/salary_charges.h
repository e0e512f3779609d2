// The charges of a person in a month. Pure rules; those of the limits stand in frame/contract/over_limit.h.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

// What one record says: the sum of supplements, or of surcharges, and its percentage of the month's pay.
struct ChargeRecord {
  double pay = 0;
  std::int32_t sum_type = 0;
  double sum = 0;
  double percentage = 0;
};

struct PersonCharges {
  double pay = 0;
  double supplement = 0, supplement_percentage = 0;
  double surcharge = 0, surcharge_percentage = 0;

  // Of several records of a type the last one counts; the pay is the last record's, whatever its type.
  void take(const ChargeRecord& record);
  double total() const { return surcharge + supplement; }
  // Of the pay, to two decimals half to even; 0 without pay.
  double total_percentage() const;
};

// What stands over a column of percentages: "% (iki 12,5%)".
std::string limit_caption(double limit);

}  // namespace velmora
