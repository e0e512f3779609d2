// `quor month`: calculates a month and prints it, closes it or opens it again.
#include <iostream>

#include "host/console/commands.h"
#include "host/console/json_values.h"
#include "host/console/progress_bar.h"
#include "host/console/session.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/month_run.h"
#include "host/report/record_text.h"

namespace quor {

namespace {

const std::vector<TextColumnLayout>& month_columns() {
  static const std::vector<TextColumnLayout> columns = {{"Person", "Pavardė, vardas"},
                                                        {"Category", "Pareigybių kategorija"},
                                                        {"Factor", "Koeficientas", 2},
                                                        {"BaseTariff", "Bazinė alga", 2},
                                                        {"Share", "Etatas"},
                                                        {"MonthSalary", "Pareiginė alga", 2},
                                                        {"BasePay", "Mėnesio alga", 2},
                                                        {"ServiceYears", "Tarnybos metai"},
                                                        {"SupplementPercentage", "Stažo priedo %"},
                                                        {"ServiceSupplement", "Stažo priedas", 2},
                                                        {"Supplements", "Priedų suma", 2},
                                                        {"Surcharges", "Priemokų suma", 2},
                                                        {"Total", "Iš viso", 2},
                                                        {"Check", "Patikra"}};
  return columns;
}

ExitStatus calculate(const Month& month, const MonthCommand& command, const CommonOptions& options, std::ostream& out) {
  Session session(options);
  MonthRun run;
  {
    const InterruptScope interrupt;
    ProgressBar bar;
    run = calculate_month(session.application(), month,
                          {.department = command.department,
                           .progress = [&](std::int32_t done, std::int32_t all) { bar.show(done, all); },
                           .cancelled = InterruptScope::interrupted});
  }
  write_rows(*run.rows, month_columns(), options.format, out);
  for (const PersonFault& fault : run.faults) std::cerr << "quor: " << fault.person << ": " << fault.reason << '\n';
  std::cerr << (run.cancelled ? "Nutraukta. " : "") << "Apskaičiuota žmonių: " << run.done << " iš " << run.all
            << "; pakeista dokumentų: " << run.changed << "; klaidų: " << run.faults.size() << ".\n";
  return run.faults.empty() && !run.cancelled ? ExitStatus::kDone : ExitStatus::kFailed;
}

ExitStatus close_or_reopen(const std::string& verb, const Month& month, const CommonOptions& options,
                           std::ostream& out) {
  if (verb != "close" && verb != "reopen") {
    throw UsageError("nežinomas veiksmas „" + verb + "“: yra close, reopen");
  }
  Session session(options);
  Database& database = session.application().company().database();
  if (verb == "close") {
    close_month(database, month, session.application().user());
    out << "Mėnuo " << month.text() << " uždarytas.\n";
  } else {
    reopen_month(database, month);
    out << "Mėnuo " << month.text() << " vėl atvertas.\n";
  }
  return ExitStatus::kDone;
}

}  // namespace

ExitStatus run(const MonthCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month month = month_of(command.words.back());
  if (command.words.size() == 1) return calculate(month, command, options, out);
  return close_or_reopen(command.words.front(), month, options, out);
}

}  // namespace quor
