#include "host/store/tables/value_ranges.h"

#include "platform/data/number_text.h"

namespace quor {

std::string NumberRange::text() const {
  return (low_included ? "nuo " : "daugiau kaip ") + general_text(low) + " iki " + general_text(high);
}

Date first_stored_date() { return Date::from_ymd(1900, 1, 1); }
Date last_stored_date() { return Date::from_ymd(2999, 12, 31); }
bool is_stored_date(Date date) { return first_stored_date() <= date && date.without_time() <= last_stored_date(); }
std::string stored_dates_text() {
  return "nuo " + date_text(first_stored_date()) + " iki " + date_text(last_stored_date());
}

}  // namespace quor
