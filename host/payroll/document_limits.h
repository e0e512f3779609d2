// The three limits of the settings that a month's supplements and surcharges are held to.
#pragma once

#include "platform/data/recordset.h"

namespace quor {

// Per cent of the base pay; 0 or below is none.
struct ChargeLimits {
  double supplements = 0;
  double surcharges = 0;
  double both = 0;

  bool operator==(const ChargeLimits&) const = default;
};

// Of settings as "GetOfficeEmployeeSettings" answers them; no limit at all without any.
inline ChargeLimits limits_of(const Recordset& settings) {
  const auto lines = settings.Clone();
  if (lines->RecordCount() == 0) return {};
  return {null_to_double(lines->field("ExtraChargePercentage")), null_to_double(lines->field("SurChargePercentage")),
          null_to_double(lines->field("TotalChargePercentage"))};
}

}  // namespace quor
