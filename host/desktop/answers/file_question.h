// Asks where a file is to be kept, and keeps it there.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "host/desktop/render/shown_table.h"
#include "platform/data/date.h"

namespace quor {

// A kind of file among which the user chooses, and how it is kept.
struct SavingWay {
  QString kind;
  std::function<void(const QString& path)> save;
};

// Nothing when the user does not want to. The folder and the kind are those of the last time. Throws what saving
// throws.
void ask_and_save(const QString& name, const QString& ending, const std::vector<SavingWay>& ways, QWidget* parent);

// A text as the name of a file, without ending.
QString file_name_of(const QString& text);

// The table as a workbook or as CSV, where the user wants it.
void ask_and_save_table(const ShownTable& table, TableFormat kind, Date today, QWidget* parent);

}  // namespace quor
