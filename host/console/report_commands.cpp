// `quor preview` and `quor print`: nothing is computed here. The plug-in's object UI and its forms are driven as a
// person would drive them, and the report that they print is written in the format of the call.
#include "host/console/report_commands.h"

#include <algorithm>
#include <iostream>

#include "host/application/menu_places.h"
#include "host/company/departments.h"
#include "host/console/department_lists.h"
#include "host/console/session.h"
#include "host/console/written_reports.h"
#include "host/payroll/month_state.h"
#include "host/store/object_codes.h"
#include "platform/data/month.h"
#include "platform/data/quoted_text.h"
#include "platform/toolkit/captioned.h"
#include "platform/toolkit/date_picker.h"
#include "platform/toolkit/form.h"

namespace quor {

namespace {

// A user's act on the application. When it showed a box that tells of a failure, the command has failed.
template <typename Act>
void acted(Application& application, const Act& act) {
  const std::size_t before = application.shown_boxes().size();
  act();
  const auto& boxes = application.shown_boxes();
  const bool failed =
      std::any_of(boxes.begin() + static_cast<std::ptrdiff_t>(before), boxes.end(),
                  [](const auto& box) { return box.icon == BoxIcon::kCritical || box.icon == BoxIcon::kExclamation; });
  if (failed) throw std::runtime_error("Sąrašas nesudarytas.");
}

// The plug-ins' entry that the word names, without one the first; throws UsageError with the words there are.
CalledEntry called(Application& application, MenuPurpose purpose, const std::optional<std::string>& word,
                   const char* unknown) {
  const std::vector<CalledEntry> entries = called_entries(application, purpose);
  std::string words;
  for (const CalledEntry& each : entries) {
    if (!word || each.entry.Word == *word) return each;
    words += (words.empty() ? "" : ", ") + each.entry.Word;
  }
  throw UsageError(unknown + (" „" + word.value_or("")) + "“: yra " + words);
}

ClickResult click(Application& application, const CalledEntry& called) {
  ClickResult result;
  acted(application, [&] { result = click_entry(application, called.place, called.entry); });
  return result;
}

// One preview of a plug-in, open for a month.
class OpenPreview {
 public:
  OpenPreview(Application& application, const CalledEntry& called, const Month& month)
      : application_(application), form_(click(application, called).EditorForm) {
    if (!form_) throw std::runtime_error("Įskiepis neparodė peržiūros lango.");
    acted(application_, [&] { form_->load(); });
    control<DatePicker>("mėnesio", [](const DatePicker&) { return true; }).pick(month.first_day());
  }
  OpenPreview(const OpenPreview&) = delete;
  OpenPreview& operator=(const OpenPreview&) = delete;
  ~OpenPreview() { form_->unload(); }

  // The report of a department, of everybody without one.
  std::shared_ptr<const ReportData> report(std::optional<std::int32_t> department) {
    if (department) {
      application_.set_pick(object_key(kDepartmentType, *department));
      press(ButtonRole::kChoose, "mygtuko padaliniui parinkti");
    }
    press(ButtonRole::kFill, "mygtuko sąrašui užpildyti");
    press(ButtonRole::kPrint, "mygtuko sąrašui spausdinti");
    return application_.shown_report();
  }

 private:
  // The first control of the kind that is so; `what` says what is missing when there is none.
  template <typename Kind, typename Test>
  Kind& control(const char* what, const Test& is_so) {
    for (Control* each : form_->controls()) {
      if (auto* const found = dynamic_cast<Kind*>(each); found != nullptr && is_so(*found)) return *found;
    }
    throw std::runtime_error(std::string("Peržiūros lange nėra ") + what + ".");
  }
  void press(ButtonRole role, const char* what) {
    const auto has_role = [&](const CommandButton& button) { return button.role() == role; };
    acted(application_, [&] { control<CommandButton>(what, has_role).click(); });
  }

  Application& application_;
  const std::shared_ptr<Form> form_;
};

// A list numbers its people in 16 bits. The rows of one person stand together. `department` 0 is everybody.
bool fits_one_list(Session& session, const Month& month, std::int32_t department) {
  constexpr std::int32_t kPeopleOfList = 32767;
  const std::string parameter = quoted(month.last_day()) + "," + std::to_string(department);
  const auto rows = session.named_record_set("OfficeEmployeePreview", parameter);
  const FieldHandle user = rows->handle("UserID");
  std::int32_t people = 0, last = 0;
  for (; !rows->Eof(); rows->MoveNext()) {
    people += rows->int32(user) == last ? 0 : 1;
    last = rows->int32(user);
  }
  return people <= kPeopleOfList;
}

// A list that everybody does not fit into becomes lists of departments, each numbered on its own.
Reports reports_of(Session& session, OpenPreview& preview, const Month& month, std::optional<std::int32_t> department) {
  const auto fits = [&](std::int32_t id) { return fits_one_list(session, month, id); };
  if (department || fits(0)) return {preview.report(department)};
  std::cerr << "Žmonės į vieną sąrašą netelpa: kiekvieno padalinio sąrašas atskirai.\n";
  return lists_by_department(session.application().company(), fits,
                             [&](std::int32_t id) { return preview.report(id); });
}

}  // namespace

ExitStatus run(const PreviewCommand& command, const CommonOptions& options, std::ostream& out) {
  const Month month = month_of(command.month);
  Session session(options);
  Application& application = session.application();
  const CalledEntry called_preview = called(application, MenuPurpose::kPreview, command.kind, "nežinoma peržiūra");
  if (options.format != kPdfFormat) application.read_reports_on_screen();
  if (command.department) require_department(application.company(), *command.department);
  const std::string state = month_state_line(month_state(application, month));
  if (!state.empty()) std::cerr << state << '\n';
  OpenPreview preview(application, called_preview, month);
  write_reports(reports_of(session, preview, month, command.department), options, application, out);
  return ExitStatus::kDone;
}

ExitStatus run(const PrintCommand& command, const CommonOptions& options, std::ostream& out) {
  Session session(options);
  Application& application = session.application();
  const CalledEntry list = called(application, MenuPurpose::kPrint, command.what, "nežinomas sąrašas");
  application.guard().require_view(list.place.object_type);
  click(application, list);
  if (!application.shown_report()) throw std::runtime_error("Įskiepis sąrašo neparodė.");
  write_reports({application.shown_report()}, options, application, out);
  return ExitStatus::kDone;
}

}  // namespace quor
