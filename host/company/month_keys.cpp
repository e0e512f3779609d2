#include "host/company/month_keys.h"

#include "frame/contract/object_key.h"
#include "platform/data/error.h"

namespace quor {

std::string key_of_month(const std::string& object_type, const Month& month) {
  return object_key(object_type, static_cast<std::int32_t>(month.first_day().serial()));
}

Month month_of_key(const std::string& key, const std::string& object_type) {
  const auto serial = id_of_key(key, object_type);
  if (!serial) throw Error(ErrorKind::kNotFound, "„" + key + "“ nėra mėnesio raktas.");
  return Month::of(Date::from_serial(*serial));
}

}  // namespace quor
