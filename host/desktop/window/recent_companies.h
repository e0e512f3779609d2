// The companies that were open last, the last one first: files by their whole path, servers without a password.
#pragma once

#include <QString>
#include <QStringList>

namespace quor {

// The setting that holds the last file, with which the program begins.
inline constexpr char kLastCompanySetting[] = "company";

QStringList recent_companies();
void remember_company(const QString& address);
// One that is gone is not offered again.
void forget_company(const QString& address);

// A file's path that holds wherever the program is started next; a server's address as it is.
QString lasting_address(const QString& address);

}  // namespace quor
