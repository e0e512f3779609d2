// The commands that explain and look ahead.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/console/call.h"

namespace quor {

struct ExplainCommand {
  std::string month;
  std::string employee;  // the ID, the key, or the name or how it begins
};
struct RoomCommand {
  std::string month;
  std::optional<std::int32_t> department;
  bool by_department = false;
};

struct StepsCommand {
  std::string month;
  int months = 3;
  std::optional<std::int32_t> department;
};

struct CheckCommand {
  std::string place;  // a table of cases, or a folder of such tables
};

std::vector<std::string> files_read(const CheckCommand& command);

ExitStatus run(const ExplainCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const RoomCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const StepsCommand& command, const CommonOptions& options, std::ostream& out);
// Needs the plug-in and no company. Fails when a case is not as its table says, a table is at fault, or there is none.
ExitStatus run(const CheckCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
