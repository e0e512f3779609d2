// A bar on the terminal for long work: people done, rate, time left. Silent where standard error is no terminal.
#pragma once

#include <chrono>
#include <cstdint>

namespace quor {

class ProgressBar {
 public:
  ProgressBar();
  ~ProgressBar();  // ends the line, if there is one
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Draws at most ten times a second, and at the end.
  void show(std::int32_t done, std::int32_t all);

 private:
  using Clock = std::chrono::steady_clock;

  bool on_terminal_;
  bool drawn_ = false;
  Clock::time_point start_;
  Clock::time_point next_;
};

// While it lives, Ctrl-C does not end the program but is remembered.
class InterruptScope {
 public:
  InterruptScope();
  ~InterruptScope();
  InterruptScope(const InterruptScope&) = delete;
  InterruptScope& operator=(const InterruptScope&) = delete;

  static bool interrupted();

 private:
  void (*previous_)(int);
};

}  // namespace quor
