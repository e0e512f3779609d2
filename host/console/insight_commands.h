// The commands that explain and look ahead.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

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

ExitStatus run(const ExplainCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const RoomCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const StepsCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
