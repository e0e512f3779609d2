#include "host/console/program_files.h"

#include <cerrno>
#include <fcntl.h>
#include <iterator>
#include <stdexcept>
#include <unistd.h>

#include "host/store/addresses.h"
#include "host/store/whole_file.h"

namespace quor {

namespace {

constexpr char kStandardOutput[] = "/dev/stdout";

void refuse_company(const std::string& place, const std::string& company) {
  refuse_company_files(place);
  if (!is_server_address(company) && !is_memory_address(company) && is_place_of_company(place, company)) {
    throw std::runtime_error("tai įmonės failo vieta, rašyti į ją negalima: „" + shown_address(place) + "“");
  }
}

}  // namespace

void hold_standard_streams() {
  // Opened the wrong way round on purpose: a closed output must fail, not swallow the result.
  constexpr int kModes[] = {O_WRONLY, O_RDONLY, O_RDONLY};
  for (int stream = 0; stream < static_cast<int>(std::size(kModes)); ++stream) {
    if (::fcntl(stream, F_GETFD) == -1 && errno == EBADF)
      ::open("/dev/null", kModes[stream]);  // the lowest free number
  }
}

void refuse_harmful_output(const CommonOptions& options, const std::vector<std::string>& read,
                           const std::vector<std::string>& written) {
  const std::string& output = options.output.empty() ? kStandardOutput : options.output;
  refuse_company(output, options.company);
  for (const std::string& place : written) refuse_company(place, options.company);
  for (const std::string& file : read) {
    if (!same_place(output, file)) continue;
    throw std::runtime_error("failas skaitomas, rašyti į jį rezultato negalima: „" + shown_address(file) + "“");
  }
}

}  // namespace quor
