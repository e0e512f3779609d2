// The settings that documents were calculated by, kept beside them: limits, surcharge codes, tariffs and scale.
#pragma once

#include <memory>
#include <string>

#include "host/store/database.h"

namespace quor {

struct DocumentSettings {
  std::string guid;                  // follows from the lines; "" without any
  std::shared_ptr<Recordset> lines;  // as "GetOfficeEmployeeSettings" answers them
};

DocumentSettings document_settings(std::shared_ptr<Recordset> lines);

// Stores the lines inside the open transaction, unless equal ones are there. Throws StoreError.
void store_settings(Database& database, const DocumentSettings& settings);

}  // namespace quor
