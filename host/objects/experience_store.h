// Storing the lengths of service that an editor has changed in their named record set.
#pragma once

#include <string>
#include <vector>

#include "host/company/company.h"
#include "platform/data/month.h"

namespace quor {

// Stores the batch of `rows` (fields as the request answers them) in one transaction; the batch itself stays as it is.
// A row may only replace or delete what stands in the store as it was when the row was read. Throws StoreError with a
// text for the user, and has stored nothing, when somebody has changed or deleted it since, somebody has recorded the
// employee's service meanwhile, a new value is out of its range, or the store cannot take one; ReachesClosedMonths when
// somebody of a closed month that is not `agreed` to is among them.
void store_experience(Company& company, const std::string& user, const Recordset& rows,
                      const std::vector<Month>& agreed);

}  // namespace quor
