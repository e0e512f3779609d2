// The program `quor`: reads the words of the call and runs the command they name.
#include <functional>
#include <iostream>
#include <sstream>

#include "host/console/command_line.h"
#include "host/console/program_files.h"
#include "host/store/whole_file.h"

namespace {

using quor::ExitStatus;

ExitStatus fail(ExitStatus status, const std::string& text) {
  std::cerr << "quor: " << text << '\n';
  if (status == ExitStatus::kUsage) std::cerr << "Pagalba: quor --help\n";
  return status;
}

// The edge of the program: whatever went wrong is one clear line and an exit status.
ExitStatus guarded(const std::function<ExitStatus()>& command) {
  try {
    return command();
  } catch (const quor::UsageError& error) {
    return fail(ExitStatus::kUsage, error.what());
  } catch (const std::exception& error) {
    return fail(ExitStatus::kFailed, error.what());
  }
}

ExitStatus printed(ExitStatus status) {
  return std::cout.flush() ? status : fail(ExitStatus::kFailed, "nepavyksta išvesti rezultato");
}

// The result goes to the file whole, or not at all.
ExitStatus write_result(const quor::CommonOptions& options, const std::function<ExitStatus(std::ostream&)>& command) {
  if (options.output.empty()) return printed(command(std::cout));
  std::ostringstream result;
  const ExitStatus status = command(result);
  quor::write_whole_file(options.output, result.str());
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  quor::hold_standard_streams();
  quor::CommandLine line;
  return static_cast<int>(guarded([&] {
    try {
      const quor::CalledCommand command = line.parse(argc, argv);
      const quor::CommonOptions& options = line.options();
      quor::refuse_harmful_output(options, command.read(), command.written());
      return write_result(options, command.run);
    } catch (const quor::HelpWanted& help) {
      std::cout << help.text;
      return printed(ExitStatus::kDone);
    }
  }));
}
