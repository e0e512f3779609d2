// The pay of one employee in one month: the time worked, the sums that follow from it, and what the check said.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/data/number_text.h"

namespace quor {

enum class SumType : std::int16_t { kBasePay = 0, kSupplement = 1, kSurcharge = 2 };

// The GUIDs of a document and its rows follow from employee, month and place, so that calculating again makes the same
// rows; 0 and "" stand for "none".
struct TimeRow {
  std::string guid;
  std::string salary_extra_oid;  // the engine object's identity in this document
  std::int32_t position = 0;     // of basic time
  std::int32_t time_code = 0;
  double hours = 0;

  bool operator==(const TimeRow&) const = default;
};

struct SalaryRow {
  std::string guid;
  std::string time_row_guid;  // supplements belong to no time row
  SumType type = SumType::kBasePay;
  double sum = 0;         // money, two decimals
  double percentage = 0;  // of the base pay, where the sum is made from one
  std::int32_t extra_charge = 0;
  std::int32_t salary_code = 0;

  bool operator==(const SalaryRow&) const = default;
};

// What a position was paid by.
struct DocumentPosition {
  std::string category;
  double factor = 0;
  double tariff = 0;
  double share = 0;
  double month_salary = 0;  // of the whole month, by the share

  bool operator==(const DocumentPosition&) const = default;
};

struct MonthDocument {
  std::string guid;
  std::int32_t employee = 0;
  std::vector<TimeRow> time_rows;
  std::vector<SalaryRow> salary_rows;  // of a time row: its base pay or surcharge; supplements after the base pay
  std::int32_t check_code = 0;
  std::string check_message;
  // What it was calculated from, kept with it so that a closed month is shown as it was paid.
  std::vector<DocumentPosition> positions;
  std::int32_t service_years = 0;
  double supplement_percentage = 0;
  std::string settings_guid;  // of its DocumentSettings

  // In whole cents: binary sums of cents carry a tail that a CSV would show.
  double sum_of(SumType type) const {
    double sum = 0;
    for (const SalaryRow& row : salary_rows) sum += row.type == type ? row.sum : 0;
    return round_even(sum, 2);
  }

  bool operator==(const MonthDocument&) const = default;
};

}  // namespace quor
