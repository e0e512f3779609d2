#include "host/payroll/value_faults.h"

#include <cmath>

#include "platform/data/number_text.h"

namespace quor {

namespace {

std::string fault_text(const std::string& what, const std::string& value, const std::string& range) {
  return what + " " + value + " (turi būti " + range + ")";
}

}  // namespace

std::string value_fault(const std::string& what, double value, const NumberRange& range) {
  if (range.holds(value)) return "";
  return fault_text(what, std::isfinite(value) ? general_text(value) : "ne skaičius", range.text());
}

std::string date_fault(const std::string& what, double serial) {
  const bool is_day = serial >= Date::kMinSerial && serial <= Date::kMaxSerial;
  if (is_day && is_stored_date(Date::from_serial(serial))) return "";
  return fault_text(what, is_day ? date_text(Date::from_serial(serial)) : "ne kalendoriaus diena", stored_dates_text());
}

}  // namespace quor
