// The people of a sample company: employees with their length of service, positions and extra charges.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/sample/sample_random.h"
#include "host/store/tables/table_rows.h"

namespace quor {

// IDs of the rows that people refer to.
struct SampleSurroundings {
  std::vector<std::int32_t> departments;
  std::vector<std::int32_t> categories;
  std::int32_t first_constant = 0;
  std::int32_t first_salary_code = 0;
};

class SamplePeople {
 public:
  SamplePeople(SampleRandom& random, const SampleSurroundings& around);

  // Adds the people numbered from `first`; the number decides which unusual case a person is.
  void add(Database& database, std::int32_t first, std::int32_t count);

 private:
  enum class Career { kPlain, kChangedCategory, kTwoPosts, kEnded, kNotBegun };
  static Career career_of(std::int32_t number);

  std::string name();
  void add_person(std::int32_t number, std::int32_t id);
  void add_positions(std::int32_t number, std::int32_t employee, Date hired);
  void add_position(std::int32_t number, std::int32_t employee, const std::string& contract, double share, Date from,
                    std::optional<Date> to);
  void add_charges(std::int32_t number, std::int32_t employee, Date hired);

  SampleRandom& random_;
  const SampleSurroundings& around_;
  TableRows employees_{"employees"}, experience_{"experience"}, positions_{"positions"}, charges_{"extra_charges"};
};

}  // namespace quor
