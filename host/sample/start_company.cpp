#include "host/sample/start_company.h"

#include <map>
#include <random>

#include "host/sample/usual_rows.h"
#include "host/store/sort_key.h"
#include "host/store/tables/table_rows.h"
#include "platform/data/variant.h"

namespace quor {

namespace {

constexpr sample_data::Day kStart{2005, 1, 1};

void add_department(Database& database) {
  constexpr std::string_view kName = "Administracija";
  TableRows rows("departments");
  rows.append_row(0, kNull, kName, lithuanian_sort_key(kName), 1);
  rows.insert_with_ids(database);
}

// The newest value of each type.
void add_values(Database& database, std::int32_t first_constant) {
  std::map<std::size_t, double> newest;
  for (const auto& value : sample_data::constant_values()) newest[value.type] = value.value;
  TableRows rows("constant_values");
  for (std::int32_t n = 0; const auto& [type, value] : newest)
    rows.append_row(n++, first_constant + static_cast<std::int32_t>(type), date_of(kStart), value);
  rows.insert_with_ids(database);
}

void add_categories(Database& database, SampleRandom& random) {
  TableRows categories("categories");
  for (std::int32_t n = 0; const auto& category : sample_data::categories())
    categories.append_row(n++, random.guid(), category.name, 1);
  const std::int32_t first = categories.insert_with_ids(database);
  TableRows rows("category_rows");
  for (std::int32_t n = 0; const auto& category : sample_data::categories()) {
    rows.append_row(n, random.guid(), first + n, date_of(kStart), category.factor_2007);
    ++n;
  }
  rows.insert_with_ids(database);
}

}  // namespace

void fill_start_company(Database& database, const std::string& name) {
  std::random_device seed;
  SampleRandom random((std::uint64_t{seed()} << 32) | seed());
  database.execute("UPDATE company SET name = :p0", {name});
  add_department(database);
  const std::int32_t first_constant = add_constant_types(database);
  add_values(database, first_constant);
  add_indications(database);
  add_salary_codes(database);
  add_categories(database, random);
  sample_data::Settings newest = sample_data::settings().back();
  newest.from = kStart;
  add_settings(database, random, first_constant, {&newest, 1});
}

}  // namespace quor
