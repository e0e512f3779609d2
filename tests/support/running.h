// Runs the built program in a folder, as a person would from a shell.
#pragma once

#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

#include "tests/support/company_place.h"

namespace quor {

struct Outcome {
  int status = -1;  // exit status
  std::string out;
  std::string err;
};

// The program while it runs; it is waited for at the end.
class RunningQuor {
 public:
  RunningQuor(const std::string& folder, const std::vector<std::string>& words, const char* display = nullptr);
  ~RunningQuor();
  RunningQuor(const RunningQuor&) = delete;
  RunningQuor& operator=(const RunningQuor&) = delete;

  Outcome finish();  // throws when it did not run to its end
  // Sends the signal and waits; true when it was still running.
  bool stop(int signal);
  void signal(int signal) const;

 private:
  int wait();

  TemporaryFolder results_;
  pid_t child_ = 0;
};

Outcome run_quor(const std::string& folder, const std::vector<std::string>& words, const char* display = nullptr);

}  // namespace quor
