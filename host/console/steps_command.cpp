// `quor steps`: who passes into another percentage for length of service in the months ahead.
#include "host/console/insight_commands.h"
#include "host/console/session.h"
#include "host/console/watched_run.h"
#include "host/console/written_reports.h"
#include "host/insight/steps_ahead.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

ReportData steps_report(const StepsAhead& ahead) {
  constexpr CellAlignment kRight = CellAlignment::kRight;
  ReportData report;
  report.columns = {{.key = "Person", .caption = "Pavardė, vardas"},
                    {.key = "Day", .caption = "Diena"},
                    {.key = "Years", .caption = "Stažas, m.", .alignment = kRight},
                    {.key = "Before", .caption = "Buvo, %", .alignment = kRight},
                    {.key = "After", .caption = "Bus, %", .alignment = kRight},
                    {.key = "Difference", .caption = "Skirtumas", .alignment = kRight},
                    {.key = "Remark", .caption = "Pastaba"}};
  for (const ServiceStep& step : ahead.steps) {
    const CellColour colour = step.over_limit ? CellColour::kRed : CellColour::kNormal;
    for (std::string text : {step.name, date_text(step.day), std::to_string(step.years), general_text(step.before),
                             general_text(step.after), fixed_text(step.difference, 2), step_remark(step)}) {
      report.cells.push_back({std::move(text), colour});
    }
    ++report.lines;
  }
  return report;
}

}  // namespace

ExitStatus run(const StepsCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month first = month_of(command.month);
  Session session(options);
  Application& application = session.application();
  if (options.format == kPdfFormat) {
    application.guard().require_right(UserRight::kPrint, kSalaryExtensionType, "spausdinti darbo užmokesčio sąrašų");
  }
  const StepsAhead ahead = watched_run(command.department, [&](const MonthOptions& watched) {
    return steps_ahead(application, first, command.months, watched);
  });
  auto report = std::make_shared<ReportData>(steps_report(ahead));
  report->title = "Tarnybos stažo pakopos nuo " + first.text() + ", mėnesių: " + std::to_string(command.months);
  write_reports({report}, options, application, out);
  tell_faults(ahead.faults);
  return ahead.faults.empty() && !ahead.cancelled ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace quor
