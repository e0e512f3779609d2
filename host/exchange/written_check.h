// What shows only when the rows of all files stand beside what was stored: hours that add up, tariffs left without a
// value.
#pragma once

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "host/company/tariff_gaps.h"
#include "host/exchange/import_file.h"
#include "host/store/database.h"

namespace quor {

class WrittenCheck {
 public:
  // Before anything is written. The files are those of one import, without faults.
  WrittenCheck(Database& database, const std::vector<TableFile>& files);

  // Once all files are written, in their open transaction. Appends the file's faults, and answers what is possible but
  // odd. Of one code more hours in a month than a month has are a fault; more than the month's norm, or more in a day
  // than a day has, all codes together (they may run beside each other), are odd.
  std::vector<ImportFault> check(const TableFile& file, std::vector<ImportFault>& faults);

 private:
  struct TariffValue {
    std::int32_t tariff;
    Date from;
  };

  void check_months(const TableFile& file, std::vector<ImportFault>& faults, std::vector<ImportFault>& warnings);
  void check_days(const TableFile& file, std::vector<ImportFault>& warnings);
  double norm_of(Date month);
  void check_versions(const TableFile& settings, std::vector<ImportFault>& faults);
  // A value that moves must not leave a stored version without one; a version that had none before is left alone.
  void check_tariff_values(const TableFile& values, std::vector<ImportFault>& faults);
  void check_code_lists(const TableFile& settings, std::vector<ImportFault>& warnings);

  Database& database_;
  const std::vector<TableFile>& files_;
  std::map<std::int32_t, TariffValue> values_before_;  // by their ID
  std::vector<TariffGap> gaps_before_;
  std::map<Date, double> norms_;  // by the month's first day, once they are needed
};

}  // namespace quor
