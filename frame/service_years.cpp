#include "frame/service_years.h"

#include <limits>

#include "platform/data/error.h"
#include "platform/data/number_text.h"

namespace velmora {

std::int16_t service_years(const RecordedService& service, quor::Date date) {
  const double passed = quor::months_between(service.reached_on, date);
  const double years = service.years + quor::int_part((service.months + passed) / 12);
  using Years = std::numeric_limits<std::int16_t>;
  if (years < Years::min() || years > Years::max()) {
    throw quor::Error(quor::ErrorKind::kOverflow, "Netinkamas įrašytas tarnybos stažas: metai " +
                                                      std::to_string(service.years) + ", mėnesiai " +
                                                      std::to_string(service.months) + ".");
  }
  return static_cast<std::int16_t>(years);
}

}  // namespace velmora
