// The words of a call: every command of the program with its values and options.
#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "host/console/call.h"

namespace quor {

// The command that the words name, ready to run, and the files that it reads and writes beside its result. It lives as
// long as the command line.
struct CalledCommand {
  std::function<ExitStatus(std::ostream&)> run;
  std::function<std::vector<std::string>()> read, written;
};

// The words ask for help, which is the text.
struct HelpWanted {
  std::string text;
};

class CommandLine {
 public:
  CommandLine();
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  // Throws HelpWanted, and UsageError for words that are off.
  CalledCommand parse(int argc, char** argv);
  // Once the words are parsed. Throws UsageError for a format that the command does not have.
  const CommonOptions& options();

 private:
  struct State;
  const std::unique_ptr<State> state_;
};

}  // namespace quor
