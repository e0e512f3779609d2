#include "tests/program/running.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/host/company_place.h"

namespace quor {

namespace {

std::string content(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

Outcome run_quor(const std::string& folder, const std::vector<std::string>& words) {
  // What whoever runs the tests has set must not reach the program.
  unsetenv("QUOR_COMPANY");
  unsetenv("QUOR_PLUGIN");
  const TemporaryFolder results;
  const std::string out = results.path("out"), err = results.path("err");

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
  pid_t child = 0;
  const int failed = posix_spawn(&child, VELMORA_PROGRAM, &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (failed != 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) {
    throw std::runtime_error("the program did not run to its end: " + content(err));
  }
  return {.status = WEXITSTATUS(status), .out = content(out), .err = content(err)};
}

}  // namespace quor
