// What every command of the program has to do with its call: the common options, and how it ends.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace quor {

// The words of the call are off; the text says which and gives a hint.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ExitStatus { kDone = 0, kFailed = 1, kUsage = 2 };

// What the options of every command say, as text until a command needs it.
struct CommonOptions {
  std::string company;
  std::vector<std::string> plugins;  // none: those that stand beside the program
  std::string today;
  std::string format = "table";
  std::string output;
  std::string user;  // "" for the program's own
};

}  // namespace quor
