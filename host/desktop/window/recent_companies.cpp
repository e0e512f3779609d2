#include "host/desktop/window/recent_companies.h"

#include <QDir>
#include <QSettings>

#include "host/store/addresses.h"

namespace quor {

namespace {

constexpr char kRecent[] = "recent";
constexpr qsizetype kMost = 8;

QString kept_form(const QString& address) {
  return QString::fromStdString(shown_address(lasting_address(address).toStdString()));
}

}  // namespace

QStringList recent_companies() { return QSettings().value(kRecent).toStringList(); }

void remember_company(const QString& address) {
  if (is_memory_address(address.toStdString())) return;
  QStringList all = recent_companies();
  all.removeAll(kept_form(address));
  all.prepend(kept_form(address));
  QSettings().setValue(kRecent, all.mid(0, kMost));
}

void forget_company(const QString& address) {
  QStringList all = recent_companies();
  all.removeAll(kept_form(address));
  QSettings().setValue(kRecent, all);
}

QString lasting_address(const QString& address) {
  const std::string text = address.toStdString();
  return is_server_address(text) || is_memory_address(text) ? address : QDir().absoluteFilePath(address);
}

}  // namespace quor
