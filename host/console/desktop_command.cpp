#include "host/console/desktop_command.h"

#include <iostream>

#include "host/console/report_commands.h"
#include "host/console/session.h"
#include "host/desktop/window/run_desktop.h"
#include "host/payroll/latest_month.h"

namespace quor {

namespace {

// The salary preview of the last month that is kept.
ExitStatus show_in_terminal(const CommonOptions& options, std::ostream& out) {
  std::cerr << "quor: nėra ekrano langams, tad rodoma darbo užmokesčio peržiūra.\n";
  const auto month = latest_month(*Database::open(options.company));
  if (!month) throw std::runtime_error("nė vienas mėnuo dar neapskaičiuotas: quor month MĖNUO");
  return run(PreviewCommand{.kind = {}, .month = month->text(), .department = {}}, options, out);
}

}  // namespace

ExitStatus run(const DesktopCommand& command, const CommonOptions& options, std::ostream& out) {
  if (!has_display()) return show_in_terminal(options, out);
  const bool done = run_desktop({.company = options.company,
                                 .company_named = command.company_named,
                                 .plugins = options.plugins,
                                 .user = options.user,
                                 .today = today_of(options)});
  return done ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace quor
