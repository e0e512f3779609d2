#include "host/payroll/month.h"

#include <string>

#include "platform/data/error.h"

namespace quor {

Month Month::parse(std::string_view text) {
  const std::size_t separator = text.find_first_of("-.");
  if (separator == 4) {
    if (const auto first = try_parse_date(std::string(text) + text[separator] + "01")) return Month(*first);
  }
  throw Error(ErrorKind::kTypeMismatch, "„" + std::string(text) + "“ nėra mėnuo: rašykite, pvz., 2008-01.");
}

}  // namespace quor
