#include "host/desktop/answers/desktop_application.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QGuiApplication>

#include "host/desktop/answers/file_question.h"
#include "host/desktop/answers/form_dialog.h"
#include "host/desktop/answers/message_box.h"
#include "host/desktop/answers/object_names.h"
#include "host/desktop/answers/object_picker.h"
#include "host/desktop/answers/report_preview.h"
#include "host/desktop/answers/work_window.h"
#include "host/desktop/edge/pointer.h"

namespace quor {

DesktopApplication::DesktopApplication(Company& company, ApplicationOptions options, Edge& edge)
    : Application(company, std::move(options)), edge_(edge) {
  edge_.before_acts([&company] { company.refresh(); });
  on_report([this](const ReportData&) { preview_report(); });
}

DesktopApplication::~DesktopApplication() { edge_.before_acts(nullptr); }

BoxAnswer DesktopApplication::MessageBox(const std::string& text, BoxIcon icon, BoxButtons buttons,
                                         const std::string& title) {
  const BoxAnswer noted = Application::MessageBox(text, icon, buttons, title);  // writes it down
  if (holds(buttons)) return noted;
  return show_message_box(edge_.window(), QString::fromStdString(text), icon, buttons, QString::fromStdString(title));
}

bool DesktopApplication::may_close(const Form& form) {
  return !form.has_unsaved_changes() || ask_to_discard(edge_.window(), QString::fromStdString(form.caption()));
}

void DesktopApplication::show_modal(Form& form) {
  form.load();
  try {
    if (!form.close_requested()) {
      const FreePointer pointer;
      FormDialog dialog(form, edge_, edge_.window());
      dialog.view().save_lists_by(
          [&](const ShownTable& table, TableFormat kind) { ask_and_save_table(table, kind, Today(), &dialog); });
      const QString subject = form.subject().empty() ? QString() : object_name(*this, form.subject());
      if (!subject.isEmpty()) dialog.name_subject(subject);
      dialog.exec();
    }
  } catch (...) {
    form.unload();
    throw;
  }
  form.unload();
}

// What the user does meanwhile waits: it is meant for what he will see then. What waits wakes nobody by itself.
void DesktopApplication::run_pending_events() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  QAbstractEventDispatcher::instance()->wakeUp();
}

std::unique_ptr<LongWork> DesktopApplication::begin_work(const std::string& what) {
  return std::make_unique<WorkWindow>(*this, QString::fromStdString(what), edge_.window());
}

void DesktopApplication::place_on_desk_top(const std::string& object, std::shared_ptr<Form> editor) {
  Application::place_on_desk_top(object, editor);
  if (desk_top_listener_) desk_top_listener_(object, editor);
}

std::string DesktopApplication::choose_object(Recordset& list, const std::string& current, const std::string& title) {
  const FreePointer pointer;
  ObjectPicker picker(list, current, QString::fromStdString(title), edge_.window());
  picker.exec();
  return picker.picked();
}

void DesktopApplication::busy_changed(bool busy) {
  if (busy) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void DesktopApplication::preview_report() {
  ReportPreview preview({shown_report()}, Today(), edge_, edge_.window());
  const FreePointer pointer;
  preview.exec();
}

}  // namespace quor
