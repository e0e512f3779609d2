// One employee's month as it is stored: the time worked, and the pay that was calculated from it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/application/application.h"
#include "host/payroll/month_document.h"
#include "platform/data/month.h"

namespace quor {

struct PaidHours {
  std::string time_code;  // "FD  Faktiškai dirbtos"
  std::string category;   // of the position, of basic time
  double hours = 0;
};

struct PaidSum {
  SumType type = SumType::kBasePay;
  std::string about;  // the time code that it is paid for, or the salary code and comment of the charge
  double percentage = 0;
  double sum = 0;
};

struct PaidMonth {
  bool has_document = false;
  bool closed = false;
  std::vector<PaidHours> hours;
  std::vector<PaidSum> sums;
  std::string check;  // what the check of the sums said; "" when nothing is against them
  std::string fault;  // why the last calculation made no document; "" without a fault

  double sum_of(SumType type) const;
  double total() const;
};

struct WorkedHours {
  std::optional<Date> day;  // none: of the whole month
  std::string time_code;
  double hours = 0;
};

struct MonthOfPerson {
  std::vector<WorkedHours> worked;  // what stands for the whole month first, then by day
  PaidMonth pay;
};

// All of it of one state of the company. Throws StoreError, and Error when the user may not view the salary extension.
MonthOfPerson month_of_person(Application& application, std::int32_t employee, const Month& month);

}  // namespace quor
