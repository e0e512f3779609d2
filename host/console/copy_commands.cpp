#include "host/console/copy_commands.h"

#include <ostream>

#include "host/application/application.h"
#include "host/company/company_copies.h"
#include "host/store/addresses.h"
#include "host/store/backup.h"

namespace quor {

namespace {

std::string user_of(const CommonOptions& options) {
  return options.user.empty() ? ApplicationOptions().user : options.user;
}

}  // namespace

std::vector<std::string> files_written(const BackupCommand& command) {
  return command.file.empty() ? std::vector<std::string>() : std::vector{command.file};
}

std::vector<std::string> files_read(const RestoreCommand& command) { return {command.file}; }

ExitStatus run(const BackupCommand& command, const CommonOptions& options, std::ostream& out) {
  Company company(Database::open(options.company));
  const Registrations none;
  RightsGuard guard(company, none, user_of(options));
  const std::string place = command.file.empty() ? free_copy_name(options.company) : command.file;
  back_up_company(guard, place);
  out << "Atsarginė kopija: „" << shown_address(place) << "“.\n";
  return ExitStatus::kDone;
}

ExitStatus run(const RestoreCommand& command, const CommonOptions& options, std::ostream& out) {
  const std::string kept = restore_company_as(user_of(options), options.company, command.file);
  out << "Įmonė „" << shown_address(options.company) << "“ atkurta iš kopijos „" << shown_address(command.file)
      << "“.\n";
  if (!kept.empty()) out << "Kas buvo prieš tai: „" << shown_address(kept) << "“.\n";
  return ExitStatus::kDone;
}

}  // namespace quor
