// Runs the built program in a folder, as a person would from a shell.
#pragma once

#include <string>
#include <vector>

namespace quor {

struct Outcome {
  int status = -1;  // exit status
  std::string out;
  std::string err;
};

Outcome run_quor(const std::string& folder, const std::vector<std::string>& words);

}  // namespace quor
