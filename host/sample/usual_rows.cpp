#include "host/sample/usual_rows.h"

#include "host/store/tables/table_rows.h"

namespace quor {

std::int32_t add_constant_types(Database& database) {
  TableRows types("constant_types");
  for (std::int32_t n = 0; const auto& type : sample_data::constant_types())
    types.append_row(n++, type.code, type.name, 1);
  return types.insert_with_ids(database);
}

void add_indications(Database& database) {
  TableRows rows("indications");
  for (std::int32_t n = 0; const auto& row : sample_data::indications()) {
    rows.append_row(n++, row.indication, row.code_id, row.code, row.name, 1);
  }
  rows.insert_with_ids(database);
}

std::int32_t add_salary_codes(Database& database) {
  TableRows rows("salary_codes");
  for (std::int32_t n = 0; const auto& code : sample_data::salary_codes())
    rows.append_row(n++, code.code, code.name, 1);
  return rows.insert_with_ids(database);
}

void add_settings(Database& database, SampleRandom& random, std::int32_t first_constant,
                  std::span<const sample_data::Settings> versions) {
  TableRows settings("settings");
  std::int32_t count = 0;
  for (const auto& each : versions) {
    settings.append_row(count++, random.guid(), date_of(each.from),
                        first_constant + static_cast<std::int32_t>(sample_data::kMonthTariff),
                        first_constant + static_cast<std::int32_t>(sample_data::kHourTariff), each.time_codes,
                        each.extra_limit, each.surcharge_limit, each.total_limit, 1);
  }
  const std::int32_t first = settings.insert_with_ids(database);

  TableRows rows("settings_rows");
  for (std::int32_t n = 0, row = 0; n < count; ++n) {
    for (std::int32_t year = 3; year <= 30; ++year) {
      rows.append_row(row++, random.guid(), first + n, year, year < 30 ? year + 1 : 100, static_cast<double>(year));
    }
  }
  rows.insert_with_ids(database);
}

}  // namespace quor
