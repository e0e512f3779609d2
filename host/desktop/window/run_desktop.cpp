#include "host/desktop/window/run_desktop.h"

#include <QDir>
#include <QSettings>
#include <cstdlib>
#include <filesystem>

#include "host/application/plugin_files.h"
#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/first_start.h"
#include "host/desktop/window/main_window.h"
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

bool is_server(const QString& address) { return is_server_address(address.toStdString()); }

// A file's path that holds wherever the program is started next; a server's address as it is.
QString lasting(const QString& address) { return is_server(address) ? address : QDir().absoluteFilePath(address); }

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

// Null when the user gives up.
std::unique_ptr<Database> open_company(const DesktopOptions& options, Edge& edge) {
  QString address = address_of(options);
  std::unique_ptr<Database> database;
  QString reason;
  try {
    database = Database::open(address.toStdString());
  } catch (const StoreError& error) {
    reason = error.what();
  }
  if (!database) {
    FirstStart page(reason, lasting(QString::fromStdString(place_of_sample(options))), edge);
    page.exec();
    database = page.take_database();
    address = page.address();
  }
  // An address may hold a password: that is not kept.
  if (database && !is_server(address)) QSettings().setValue(kLastCompany, lasting(address));
  return database;
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
    auto database = open_company(options, edge);
    if (!database) return;
    Company company(std::move(database));
    DesktopApplication application(company,
                                   {.title = "Quor",
                                    .user = user_name(options),
                                    .today = options.today,
                                    .edit_charge = edit_personal_charge,
                                    .host_types = host_editors()},
                                   edge);
    load_plugins(application, options.plugins, [&](const std::string& text) {
      application.MessageBox(text, BoxIcon::kExclamation, BoxButtons::kOk, application.Title());
    });
    MainWindow window(application);
    window.show();
    done = DesktopProcess::exec() == 0;
  });
  return done;
}

}  // namespace quor
