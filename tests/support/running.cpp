#include "tests/support/running.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace quor {

namespace {

std::string content(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

RunningQuor::RunningQuor(const std::string& folder, const std::vector<std::string>& words, const char* display) {
  // What whoever runs the tests has set must not reach the program.
  unsetenv("QUOR_COMPANY");
  unsetenv("QUOR_PLUGIN");
  unsetenv("QUOR_USER");
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  if (display != nullptr) setenv("DISPLAY", display, 1);
  const std::string out = results_.path("out"), err = results_.path("err");

  std::vector<std::string> texts = {VELMORA_PROGRAM};
  texts.insert(texts.end(), words.begin(), words.end());
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT, 0600);
  posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
  const int failed = posix_spawn(&child_, VELMORA_PROGRAM, &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) throw std::runtime_error("the program did not start");
}

RunningQuor::~RunningQuor() {
  if (child_ != 0) stop(SIGKILL);
}

int RunningQuor::wait() {
  int status = 0;
  waitpid(child_, &status, 0);
  child_ = 0;
  return status;
}

Outcome RunningQuor::finish() {
  const int status = wait();
  if (!WIFEXITED(status)) {
    throw std::runtime_error("the program did not run to its end: " + content(results_.path("err")));
  }
  return {.status = WEXITSTATUS(status), .out = content(results_.path("out")), .err = content(results_.path("err"))};
}

void RunningQuor::signal(int signal) const { kill(child_, signal); }

bool RunningQuor::stop(int signal) {
  this->signal(signal);
  return WIFSIGNALED(wait());
}

Outcome run_quor(const std::string& folder, const std::vector<std::string>& words, const char* display) {
  return RunningQuor(folder, words, display).finish();
}

}  // namespace quor
