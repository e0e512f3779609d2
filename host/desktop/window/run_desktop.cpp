#include "host/desktop/window/run_desktop.h"

#include <QFile>
#include <QSettings>
#include <cstdlib>
#include <filesystem>

#include "host/desktop/edge/desktop_process.h"
#include "host/desktop/edge/pointer.h"
#include "host/desktop/window/company_session.h"
#include "host/desktop/window/first_start.h"
#include "host/desktop/window/recent_companies.h"
#include "host/store/addresses.h"

namespace quor {

namespace {

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
  const QString last = QSettings().value(kLastCompanySetting).toString();
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
    NextCompany first = open_company(options, address_of(options), edge);
    done = first.database != nullptr;
    show_companies(
        {.plugins = options.plugins, .user = user_name(options), .today = options.today}, std::move(first),
        [&](const QString& address) { return open_company(options, address, edge); }, edge);
  });
  return done;
}

}  // namespace quor
