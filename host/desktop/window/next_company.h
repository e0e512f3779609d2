// What the main window leaves to whoever has shown it: the company to go on with.
#pragma once

#include <memory>
#include <string>

#include "host/store/database.h"

namespace quor {

// At most one of both: a company that is open already, or a copy that the present one is brought back to. With neither
// the program ends.
struct NextCompany {
  std::unique_ptr<Database> database = {};
  std::string address = {};       // of the database
  std::string restore_from = {};  // the copy's file
};

}  // namespace quor
