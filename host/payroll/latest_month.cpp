#include "host/payroll/latest_month.h"

namespace quor {

std::optional<Month> latest_month(Database& database) {
  const auto row = database.read("SELECT MAX(month) FROM documents", {{"Month", FieldType::kDate}});
  if (row->is_null(FieldHandle{0})) return std::nullopt;
  return Month::of(row->field(FieldHandle{0}).to_date());
}

}  // namespace quor
