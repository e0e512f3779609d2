// The commands of the program: each does its work, writes its result to `out` and answers the exit status.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "host/console/call.h"

namespace quor {

struct InitCommand {
  std::int32_t employees = 30;
  std::uint32_t seed = 1;
  bool empty = false;  // no data, only the schema
  std::string start;   // the office's name: all that the first employee needs
};
struct CallCommand {
  std::string method;
  std::vector<std::string> arguments;
  std::string oid;
  std::string pick;  // what the object picker answers
};
struct GetCommand {
  std::string name;
  std::string parameter;
};
struct MonthCommand {
  std::vector<std::string> words;  // the month; or "close", "reopen" or "state" and the month
  std::optional<std::int32_t> department;
  std::optional<std::string> despite;  // why it is closed as it stands
  std::optional<std::string> reason;   // why it is opened again
};

// Which files the command reads, by its words alone. The other commands read none but the company.
std::vector<std::string> files_read(const CallCommand& command);

ExitStatus run(const InitCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const CallCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const GetCommand& command, const CommonOptions& options, std::ostream& out);
ExitStatus run(const MonthCommand& command, const CommonOptions& options, std::ostream& out);

}  // namespace quor
