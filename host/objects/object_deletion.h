// Deleting stored objects.
#pragma once

#include <string>

#include "frame/contract/quor_application.h"
#include "host/company/company.h"

namespace quor {

// Deletes the record of the key or identity with its rows and its places on desk tops, in one transaction; with an
// employee go positions, service, charges and worked time. A position that held in a closed month is asked about first.
// Throws StoreError with a text for the user, and has changed nothing, when objects of the type are not deleted here,
// the user lacks the right or does not agree, the record is gone, or something uses it: positions a category, documents
// and charges a position, a closed month the settings by which it was calculated and the charges paid in it, documents
// and the worked time of closed months an employee.
void delete_object(QuorApplication& application, Company& company, const std::string& identity);

}  // namespace quor
