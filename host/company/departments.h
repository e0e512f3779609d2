// Departments and what belongs to them: a department stands for itself and every one below it.
#pragma once

#include <cstdint>
#include <string>

#include "host/company/company.h"

namespace quor {

// The SQL condition that `department_column` is the department bound to `bind` (":p2"), or one below it.
std::string in_department(const std::string& department_column, const std::string& bind);

// Throws quor::Error (NotFound) naming it when there is no such department.
void require_department(Company& company, std::int32_t department);

}  // namespace quor
