#include "host/desktop/window/run_desktop.h"

#include <QFile>
#include <QSettings>
#include <cstdlib>
#include <filesystem>

#include "host/application/plugin_files.h"
#include "host/company/company_copies.h"
#include "host/desktop/answers/message_box.h"
#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/first_start.h"
#include "host/desktop/window/main_window.h"
#include "host/desktop/window/recent_companies.h"
#include "host/editors/host_editors.h"
#include "host/editors/personal_charge_editor.h"
#include "host/store/addresses.h"

namespace quor {

namespace {

constexpr char kLastCompany[] = "company";

bool is_set(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

std::string user_name(const DesktopOptions& options) {
  if (!options.user.empty()) return options.user;
  const char* const name = std::getenv("USER");
  return name != nullptr && *name != '\0' ? name : "naudotojas";
}

// Where the sample would be made: at the address that was named, unless no file can stand there.
std::string place_of_sample(const DesktopOptions& options) {
  try {
    refuse_mistaken_address(options.company);
    return options.company;
  } catch (const StoreError&) {
    return "sample.quor";
  }
}

QString address_of(const DesktopOptions& options) {
  const QString named = QString::fromStdString(options.company);
  const QString last = QSettings().value(kLastCompany).toString();
  const bool look_for_last = !options.company_named && !last.isEmpty() && !QFile::exists(named);
  return look_for_last ? last : named;
}

// Of no database when the user gives up.
NextCompany open_company(const DesktopOptions& options, const QString& address, Edge& edge) {
  QString reason;
  try {
    return {.database = Database::open(address.toStdString()), .address = address.toStdString()};
  } catch (const StoreError& error) {
    reason = error.what();
  }
  FirstStart page(reason, lasting_address(QString::fromStdString(place_of_sample(options))), edge);
  page.exec();
  return page.take_company();
}

void note_opened(const QString& address) {
  remember_company(address);
  // An address may hold a password: that is not kept.
  if (!is_server_address(address.toStdString())) QSettings().setValue(kLastCompany, lasting_address(address));
}

// Shows the company until its window has closed; answers what the user goes on with. Nothing of the company is left
// then.
NextCompany show_company(const DesktopOptions& options, NextCompany shown, Edge& edge) {
  note_opened(QString::fromStdString(shown.address));
  Company company(std::move(shown.database));
  DesktopApplication application(
      company,
      {.title = "Quor", .user = user_name(options), .today = options.today, .edit_charge = edit_personal_charge}, edge);
  load_plugins(application, options.plugins, [&](const std::string& text) {
    application.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application.Title());
  });
  MainWindow window(application, shown.address);
  window.show();
  DesktopProcess::exec();
  // What closing has put off, while what it is about still stands.
  QCoreApplication::sendPostedEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return window.take_next();
}

// The company at `address` as the copy has it, or as it was when that failed.
NextCompany restored(const DesktopOptions& options, const std::string& address, const std::string& copy, Edge& edge) {
  edge.act(nullptr, [&] {
    const std::string kept = restore_company_as(user_name(options), address, copy);
    const FreePointer pointer;
    show_message_box(nullptr, "Įmonė atkurta iš kopijos. Kas buvo prieš tai: „" + QString::fromStdString(kept) + "“.",
                     BoxIcon::kInformation, BoxButtons::kOk, "Atkurti iš kopijos");
  });
  return open_company(options, QString::fromStdString(address), edge);
}

}  // namespace

bool has_display() {
  const char* const platform = std::getenv("QT_QPA_PLATFORM");
  if (platform != nullptr && std::string_view(platform) == "offscreen") return true;
  return is_set("DISPLAY") || is_set("WAYLAND_DISPLAY");
}

bool run_desktop(const DesktopOptions& options) {
  char program[] = "quor";
  char* words[] = {program, nullptr};
  int count = 1;
  Edge edge;
  DesktopProcess process(count, words, edge);
  bool done = false;
  edge.act(nullptr, [&] {
    const FreePointer pointer;
    NextCompany next = open_company(options, address_of(options), edge);
    while (next.database) {
      done = true;
      const std::string address = lasting_address(QString::fromStdString(next.address)).toStdString();
      next.address = address;
      next = show_company(options, std::move(next), edge);
      if (!next.restore_from.empty()) next = restored(options, address, next.restore_from, edge);
    }
  });
  return done;
}

}  // namespace quor
