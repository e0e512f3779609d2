// `quor month`: calculates a month and prints it, closes it, opens it again, or says how it stands.
#include <iostream>

#include "host/console/commands.h"
#include "host/console/json_values.h"
#include "host/console/session.h"
#include "host/console/watched_run.h"
#include "host/payroll/calculated_month.h"
#include "host/payroll/closed_months.h"
#include "host/payroll/month_state.h"
#include "host/report/record_text.h"
#include "host/report/report_xlsx.h"
#include "platform/data/column.h"

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

// In the format of the call, which may be a workbook, too.
void write_titled(Recordset& rows, const std::vector<TextColumnLayout>& columns, const std::string& title,
                  const CommonOptions& options, const Application& application, std::ostream& out) {
  if (options.format != "xlsx") return write_rows(rows, columns, options.format, out);
  auto report = std::make_shared<ReportData>(record_report(rows, columns));
  report->title = title;
  out << report_xlsx({report}, application.Today());
}

ExitStatus calculate(const Month& month, const MonthCommand& command, const CommonOptions& options, std::ostream& out) {
  Session session(options);
  const CalculatedMonth calculated = watched_run(command.department, [&](const MonthOptions& watched) {
    return calculate_month(session.application(), month, watched);
  });
  write_titled(*calculated.rows, month_columns(), "Mėnuo " + month.text(), options, session.application(), out);
  tell_faults(calculated.faults);
  std::cerr << (calculated.cancelled ? "Nutraukta. " : "") << "Apskaičiuota žmonių: " << calculated.done << " iš "
            << calculated.all << "; pakeista dokumentų: " << calculated.changed
            << "; klaidų: " << calculated.faults.size() << "; viršija ribą: " << calculated.over_limit << ".\n";
  return calculated.faults.empty() && !calculated.cancelled ? ExitStatus::kDone : ExitStatus::kFailed;
}

ExitStatus close(Application& application, const Month& month, const MonthCommand& command, std::ostream& out) {
  try {
    close_month(application, month, command.despite);
  } catch (const MonthNotReady& refused) {
    std::cerr << refused.what() << '\n';
    throw std::runtime_error("mėnuo neuždarytas; uždaryti, koks yra: --despite \"PRIEŽASTIS\"");
  }
  out << "Mėnuo " << month.text() << " uždarytas.\n";
  return ExitStatus::kDone;
}

ExitStatus reopen(Application& application, const Month& month, const MonthCommand& command, std::ostream& out) {
  reopen_month(application, month, *command.reason);
  out << "Mėnuo " << month.text() << " vėl atvertas.\n";
  return ExitStatus::kDone;
}

// How it stands in one line, then who closed and reopened it: in a table one below the other, else the line stands
// beside the rows.
ExitStatus show_state(Application& application, const Month& month, const CommonOptions& options, std::ostream& out) {
  const std::string line = month_state_line(month_state(application, month));
  (options.format == "table" ? out : std::cerr)
      << (line.empty() ? month.text() + ": apskaičiuotas, duomenys nepakeisti" : line) << '\n';
  const std::vector<MonthClosing> closings = closings_of(application.company().database(), month);
  if (closings.empty() && options.format == "table") return ExitStatus::kDone;
  std::vector<ColumnData> columns;
  for (const char* name : {"At", "By", "Act", "Reason"}) columns.push_back(ColumnData({name, FieldType::kText}));
  for (const MonthClosing& closing : closings) {
    columns[0].append(closing.at);
    columns[1].append(closing.by);
    columns[2].append(closing.closed ? "uždarytas" : "atvertas");
    columns[3].append(closing.reason);
  }
  write_titled(*Recordset::from_columns(std::move(columns)),
               {{"At", "Kada"}, {"By", "Kas"}, {"Act", "Veiksmas"}, {"Reason", "Priežastis"}}, "Mėnuo " + month.text(),
               options, application, out);
  return ExitStatus::kDone;
}

bool is_blank(const std::string& text) { return text.find_first_not_of(" \t") == std::string::npos; }

// Reasons belong to one act each, and say something.
void check_words(const std::string& verb, const MonthCommand& command) {
  if (!verb.empty() && verb != "close" && verb != "reopen" && verb != "state") {
    throw UsageError("nežinomas veiksmas „" + verb + "“: yra close, reopen, state");
  }
  if (command.despite && verb != "close") throw UsageError("--despite rašoma tik uždarant: close");
  if (command.reason && verb != "reopen") throw UsageError("--reason rašoma tik atveriant: reopen");
  if (command.despite && is_blank(*command.despite)) throw UsageError("--despite priežastis tuščia");
  if (verb == "reopen" && (!command.reason || is_blank(*command.reason))) {
    throw UsageError("atveriant mėnesį būtina priežastis: --reason \"PRIEŽASTIS\"");
  }
}

}  // namespace

ExitStatus run(const MonthCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month month = month_of(command.words.back());
  const std::string verb = command.words.size() == 1 ? "" : command.words.front();
  check_words(verb, command);
  if (verb.empty()) return calculate(month, command, options, out);
  Session session(options);
  Application& application = session.application();
  if (verb == "close") return close(application, month, command, out);
  if (verb == "reopen") return reopen(application, month, command, out);
  return show_state(application, month, options, out);
}

}  // namespace quor
