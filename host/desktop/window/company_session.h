// The companies of one run of the windows, one after the other: each with an application and a window of its own, of
// which nothing is left when the next one comes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/desktop/edge/edge.h"
#include "host/desktop/window/next_company.h"
#include "platform/data/date.h"

namespace quor {

struct SessionOptions {
  std::vector<std::string> plugins;  // none: those that stand beside the program
  std::string user;
  std::optional<Date> today = {};
};

// Opens the company at an address again; of no database when the user gives up.
using Reopen = std::function<NextCompany(const QString& address)>;

// Shows the first one, then what its user goes on with, until he goes on with nothing. A company that is brought back
// to a copy is opened again as the copy has it, or, after the error was shown, as it was.
void show_companies(const SessionOptions& options, NextCompany first, const Reopen& reopen, Edge& edge);

}  // namespace quor
