#include "host/console/progress_bar.h"

#include <csignal>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace quor {

namespace {

constexpr int kWidth = 30;

volatile std::sig_atomic_t interrupt_seen = 0;

extern "C" void remember_interrupt(int) { interrupt_seen = 1; }

}  // namespace

ProgressBar::ProgressBar() : on_terminal_(isatty(STDERR_FILENO) == 1), start_(Clock::now()), next_(start_) {}

ProgressBar::~ProgressBar() {
  if (drawn_) std::fputc('\n', stderr);
}

void ProgressBar::show(std::int32_t done, std::int32_t all) {
  const auto now = Clock::now();
  if (!on_terminal_ || (now < next_ && done < all)) return;
  next_ = now + std::chrono::milliseconds(100);
  drawn_ = true;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  const double rate = seconds > 0 ? done / seconds : 0;
  const int left = rate > 0 ? static_cast<int>((all - done) / rate + 0.5) : 0;
  const int filled = all > 0 ? static_cast<int>(static_cast<std::int64_t>(kWidth) * done / all) : kWidth;
  const std::string bar =
      std::string(static_cast<std::size_t>(filled), '#') + std::string(static_cast<std::size_t>(kWidth - filled), '.');
  std::fprintf(stderr, "\r[%s] %d / %d   %.0f žm./s   liko %d s  ", bar.c_str(), done, all, rate, left);
  std::fflush(stderr);
}

InterruptScope::InterruptScope() : previous_(std::signal(SIGINT, remember_interrupt)) { interrupt_seen = 0; }
InterruptScope::~InterruptScope() { std::signal(SIGINT, previous_); }
bool InterruptScope::interrupted() { return interrupt_seen != 0; }

}  // namespace quor
