// A list of everybody that one list cannot hold, as lists of departments.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "host/company/company.h"
#include "host/report/report_pages.h"

namespace quor {

// Whether one list holds a department's people with those of every one below it, and that list.
using DepartmentFits = std::function<bool(std::int32_t department)>;
using DepartmentList = std::function<std::shared_ptr<const ReportData>(std::int32_t department)>;

// The lists of the departments of the first level, in the order of their names, without the empty ones: nobody is left
// out, for everybody belongs to a department. One that holds too many is divided into those below it. Throws
// quor::Error (Overflow) naming a department that cannot be: it has none below it, or people of its own, too.
Reports lists_by_department(Company& company, const DepartmentFits& fits, const DepartmentList& list_of);

}  // namespace quor
