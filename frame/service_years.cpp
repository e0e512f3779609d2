#include "frame/service_years.h"

#include "platform/data/number_text.h"
#include "platform/data/variant.h"

namespace velmora {

std::int16_t service_years(const RecordedService& service, quor::Date date) {
  const int months = quor::months_between(quor::first_of_month(service.reached_on), quor::first_of_month(date));
  return quor::Variant(service.years + quor::int_part((service.months + months) / 12.0)).to_int16();
}

}  // namespace velmora
