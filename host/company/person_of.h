// Whose an object is.
#pragma once

#include <string>

#include "host/company/company.h"

namespace quor {

// The employee's key of an employee's key, or of one of their positions or charges; "" for any other, and for what is
// gone. Throws StoreError.
std::string person_of(Company& company, const std::string& key);

}  // namespace quor
