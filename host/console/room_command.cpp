// `quor room`: what may still be given to each within the limits, or to each department.
#include <iostream>

#include "frame/contract/over_limit.h"
#include "host/console/insight_commands.h"
#include "host/console/session.h"
#include "host/console/watched_run.h"
#include "host/console/written_reports.h"
#include "host/insight/room_of_month.h"
#include "host/store/object_codes.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

ReportColumn number_column(const char* key, const char* caption) {
  return {.key = key, .caption = caption, .width = 0, .alignment = CellAlignment::kRight};
}

std::string percentage_of_base(const Room& room, double base) {
  return room && !is_no_base(base) ? fixed_text(percentage_of(*room, base), 2) : "";
}

ReportData people_report(const MonthRoom& room) {
  ReportData report;
  report.columns = {{.key = "Person", .caption = "Pavardė, vardas"},
                    {.key = "Department", .caption = "Padalinys"},
                    number_column("Base", "Pagrindas"),
                    number_column("Supplements", "Priedai"),
                    number_column("Surcharges", "Priemokos"),
                    number_column("RoomSupplement", "Priedams dar galima"),
                    number_column("RoomSupplementPercentage", "%"),
                    number_column("RoomSurcharge", "Priemokoms dar galima"),
                    number_column("RoomSurchargePercentage", "%"),
                    number_column("Room", "Iš viso dar galima"),
                    number_column("RoomPercentage", "%")};
  for (const PersonRoom& person : room.people) {
    const RoomLeft& left = person.left;
    const CellColour colour = left.over > 0 ? CellColour::kRed : CellColour::kNormal;
    std::vector<std::string> cells = {person.name, person.department, fixed_text(person.pay.base, 2),
                                      fixed_text(person.pay.supplements, 2), fixed_text(person.pay.surcharges, 2)};
    for (const Room& each : {left.supplement, left.surcharge, left.both}) {
      cells.push_back(room_text(each, left.over));
      cells.push_back(left.over > 0 ? "" : percentage_of_base(each, person.pay.base));
    }
    for (std::string& cell : cells) report.cells.push_back({std::move(cell), colour});
    ++report.lines;
  }
  return report;
}

ReportData departments_report(const MonthRoom& room) {
  ReportData report;
  report.columns = {{.key = "Department", .caption = "Padalinys"},
                    number_column("People", "Žmonių"),
                    number_column("Over", "Virš ribos"),
                    number_column("Unlimited", "Be ribos"),
                    number_column("RoomSupplement", "Priedams dar galima"),
                    number_column("RoomSurcharge", "Priemokoms dar galima"),
                    number_column("Room", "Iš viso dar galima")};
  DepartmentRoom all{.department = "Iš viso"};
  const auto add = [&](const DepartmentRoom& each) {
    for (std::string text :
         {each.department, std::to_string(each.people), std::to_string(each.over), std::to_string(each.unlimited),
          fixed_text(each.supplements, 2), fixed_text(each.surcharges, 2), fixed_text(each.both, 2)}) {
      report.cells.push_back({std::move(text)});
    }
    ++report.lines;
  };
  for (const DepartmentRoom& each : room_by_department(room.people)) {
    add(each);
    all += each;
  }
  add(all);
  return report;
}

}  // namespace

ExitStatus run(const RoomCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month month = month_of(command.month);
  Session session(options);
  Application& application = session.application();
  if (options.format == kPdfFormat) {
    application.guard().require_right(UserRight::kPrint, kSalaryExtensionType, "spausdinti darbo užmokesčio sąrašų");
  }
  const MonthRoom room = watched_run(
      command.department, [&](const MonthOptions& watched) { return room_of_month(application, month, watched); });
  ReportData report = command.by_department ? departments_report(room) : people_report(room);
  report.title = "Kiek dar galima skirti, " + month.text();
  write_reports({std::make_shared<ReportData>(std::move(report))}, options, application, out);
  tell_faults(room.faults);
  return room.faults.empty() && !room.cancelled ? ExitStatus::kDone : ExitStatus::kFailed;
}

}  // namespace quor
