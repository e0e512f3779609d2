// The components of a month's pay: what the engine, asked by method name, says of each position in force in the month.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/business/application.h"

namespace quor {

// One month of the calendar.
class Month {
 public:
  // "2008-01", "2008.01" or "2008-1"; throws quor::Error (TypeMismatch) naming the text.
  static Month parse(std::string_view text);
  Date first_day() const { return first_day_; }
  Date last_day() const { return last_of_month(first_day_); }

 private:
  explicit Month(Date first_day) : first_day_(first_day) {}
  Date first_day_;
};

// One person whose components could not be had, and why.
struct PersonFault {
  std::string person;
  std::string reason;
};

struct MonthComponents {
  // Person, Category, Factor, BaseTariff, Share, MonthSalary, ServiceYears, SupplementPercentage, Supplement: a row a
  // position, persons in alphabetical order.
  std::shared_ptr<Recordset> rows;
  std::vector<PersonFault> faults;
};

// `department` with its sub-departments, or everybody. Writes nothing. Throws StoreError, PluginError, and quor::Error
// for an unknown department; a fault of one person is recorded and the others go on.
MonthComponents month_components(Application& application, const Month& month, std::optional<std::int32_t> department);

}  // namespace quor
