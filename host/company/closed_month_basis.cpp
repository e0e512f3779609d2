#include "host/company/closed_month_basis.h"

#include "platform/data/month.h"

namespace quor {

std::string settings_of_closed_month(Company& company, Date date) {
  const auto months = company
                          .kept("ClosedMonths",
                                [&] {
                                  return company.database().read(
                                      "SELECT month, settings_guid FROM closed_months WHERE settings_guid IS NOT NULL",
                                      {{"Month", FieldType::kDate}, {"Settings", FieldType::kText}});
                                })
                          ->Clone();
  const Date month = Month::of(date).first_day();
  for (const FieldHandle first{0}, settings{1}; !months->Eof(); months->MoveNext()) {
    if (months->field(first).to_date() == month) return std::string(months->text(settings));
  }
  return "";
}

}  // namespace quor
