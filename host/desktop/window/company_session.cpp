#include "host/desktop/window/company_session.h"

#include <QSettings>

#include "host/application/plugin_files.h"
#include "host/company/company_copies.h"
#include "host/desktop/answers/message_box.h"
#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/main_window.h"
#include "host/desktop/window/recent_companies.h"
#include "host/editors/host_editors.h"
#include "host/editors/personal_charge_editor.h"
#include "host/store/addresses.h"

namespace quor {

namespace {

void note_opened(const QString& address) {
  remember_company(address);
  // An address may hold a password: that is not kept.
  if (!is_server_address(address.toStdString())) QSettings().setValue(kLastCompanySetting, lasting_address(address));
}

// Shows the company until its window has closed; answers what the user goes on with. Nothing of the company is left
// then.
NextCompany show_company(const SessionOptions& options, NextCompany shown, Edge& edge) {
  note_opened(QString::fromStdString(shown.address));
  Company company(std::move(shown.database));
  DesktopApplication application(company,
                                 {.title = "Quor",
                                  .user = options.user,
                                  .today = options.today,
                                  .edit_charge = edit_personal_charge,
                                  .host_types = host_editors()},
                                 edge);
  load_plugins(application, options.plugins, [&](const std::string& text) {
    application.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application.Title());
  });
  MainWindow window(application, shown.address);
  window.show();
  window.show_first_page();
  DesktopProcess::exec();
  // What closing has put off, while what it is about still stands.
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return window.take_next();
}

void restore(const SessionOptions& options, const std::string& address, const std::string& copy, Edge& edge) {
  edge.act(nullptr, [&] {
    const std::string kept = restore_company_as(options.user, address, copy);
    const FreePointer pointer;
    show_message_box(nullptr, "Įmonė atkurta iš kopijos. Kas buvo prieš tai: „" + QString::fromStdString(kept) + "“.",
                     BoxIcon::kInformation, BoxButtons::kOk, "Atkurti iš kopijos");
  });
}

}  // namespace

void show_companies(const SessionOptions& options, NextCompany first, const Reopen& reopen, Edge& edge) {
  for (NextCompany next = std::move(first); next.database;) {
    const QString address = lasting_address(QString::fromStdString(next.address));
    next.address = address.toStdString();
    next = show_company(options, std::move(next), edge);
    if (next.restore_from.empty()) continue;
    restore(options, address.toStdString(), next.restore_from, edge);
    next = reopen(address);
  }
}

}  // namespace quor
