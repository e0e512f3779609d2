#include "frame/charge_limits.h"

#include "frame/catalogue.h"

namespace velmora {

ChargeLimits charge_limits(const quor::Recordset& settings) {
  return {.supplement = catalogue::null_to_double(settings.field("ExtraChargePercentage")),
          .surcharge = catalogue::null_to_double(settings.field("SurChargePercentage")),
          .total = catalogue::null_to_double(settings.field("TotalChargePercentage"))};
}

}  // namespace velmora
