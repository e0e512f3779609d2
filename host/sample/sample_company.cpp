#include "host/sample/sample_company.h"

#include <algorithm>
#include <string>

#include "host/sample/sample_data.h"
#include "host/sample/sample_people.h"
#include "host/sample/sample_random.h"
#include "host/sample/usual_rows.h"
#include "host/store/sort_key.h"
#include "host/store/tables/table_rows.h"

namespace quor {
namespace {

constexpr std::int32_t kPeoplePerDepartment = 25;
// Every fourth department is of the first level; the next three are its divisions.
constexpr std::int32_t kDivisions = 3;
// People a batch: bounds the memory, and the number of statements grows only with it.
constexpr std::int32_t kBatch = 5000;

std::vector<std::int32_t> add_departments(Database& database, std::int32_t employees) {
  const auto areas = sample_data::department_areas();
  const auto tasks = sample_data::division_tasks();
  const std::int32_t most = static_cast<std::int32_t>(areas.size()) * (kDivisions + 1);
  const std::int32_t count = std::clamp(employees / kPeoplePerDepartment + 1, kDivisions + 1, most);
  const std::int32_t first = database.reserve_ids("departments", count);

  TableRows rows("departments");
  std::vector<std::int32_t> ids;
  for (std::int32_t n = 0; n < count; ++n) {
    const std::string area(areas[static_cast<std::size_t>(n / (kDivisions + 1))]);
    const std::int32_t place = n % (kDivisions + 1);
    const std::string name =
        place == 0 ? area + " skyrius"
                   : area + " skyriaus " + std::string(tasks[static_cast<std::size_t>(place - 1)]) + " poskyris";
    const auto parent = place == 0 ? std::nullopt : std::optional(first + n - place);
    ids.push_back(first + n);
    rows.append_row(first + n, parent, name, lithuanian_sort_key(name), 1);
  }
  rows.insert_into(database);
  return ids;
}

// Answers the ID of the first salary constant type.
std::int32_t add_constants(Database& database) {
  const std::int32_t first = add_constant_types(database);
  TableRows values("constant_values");
  for (std::int32_t n = 0; const auto& value : sample_data::constant_values()) {
    values.append_row(n++, first + static_cast<std::int32_t>(value.type), date_of(value.from), value.value);
  }
  values.insert_with_ids(database);
  return first;
}

std::vector<std::int32_t> add_categories(Database& database, SampleRandom& random) {
  TableRows categories("categories");
  for (std::int32_t n = 0; const auto& category : sample_data::categories()) {
    categories.append_row(n++, random.guid(), category.name, 1);
  }
  const std::int32_t first = categories.insert_with_ids(database);

  TableRows rows("category_rows");
  std::vector<std::int32_t> ids;
  std::int32_t row = 0;
  for (const auto& category : sample_data::categories()) {
    const std::int32_t id = first + static_cast<std::int32_t>(ids.size());
    ids.push_back(id);
    rows.append_row(row++, random.guid(), id, Date::from_ymd(2005, 1, 1), category.factor_2005);
    if (category.factor_2006 > 0.0)
      rows.append_row(row++, random.guid(), id, Date::from_ymd(2006, 7, 1), category.factor_2006);
    rows.append_row(row++, random.guid(), id, Date::from_ymd(2007, 7, 1), category.factor_2007);
  }
  rows.insert_with_ids(database);
  return ids;
}

}  // namespace

void fill_sample_company(Database& database, const SampleOptions& options) {
  SampleRandom random(options.seed);
  database.execute("UPDATE company SET name = :p0", {sample_data::kCompanyName});
  SampleSurroundings around;
  around.departments = add_departments(database, options.employees);
  around.first_constant = add_constants(database);
  add_indications(database);
  around.first_salary_code = add_salary_codes(database);
  around.categories = add_categories(database, random);
  add_settings(database, random, around.first_constant, sample_data::settings());

  SamplePeople people(random, around);
  for (std::int32_t done = 0; done < options.employees;) {
    const std::int32_t count = std::min(kBatch, options.employees - done);
    people.add(database, done, count);
    done += count;
    if (options.progress) options.progress(done, options.employees);
  }
}

void make_sample_company(Database& database, const SampleOptions& options) {
  Transaction transaction(database);
  fill_sample_company(database, options);
  transaction.commit();
}

}  // namespace quor
