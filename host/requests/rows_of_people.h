// What requests read of everybody, read of a few people alone: a calculation of one person among a hundred thousand
// asks for no more.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/requests/requests.h"

namespace quor::requests {

class RowsOfPeople {
 public:
  // Reads at once, two statements. Throws StoreError.
  RowsOfPeople(Database& database, const std::vector<std::int32_t>& people);

  // As the requests of these names (requests.h) answer, without anybody else.
  Answer office_employee_experience(ParameterText& parameter) const;
  Answer salary_extra_row(ParameterText& parameter) const;

 private:
  Answer experience_;
  Answer positions_;
};

}  // namespace quor::requests
