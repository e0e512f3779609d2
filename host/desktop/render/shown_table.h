// A table as it is on the screen, for whoever takes it elsewhere: the clipboard, a file, the status line.
#pragma once

#include <QAbstractItemModel>
#include <QItemSelection>
#include <QString>
#include <string>
#include <vector>

#include "platform/toolkit/list_view.h"

namespace quor {

struct ShownTable {
  struct Column {
    std::string caption;
    CellAlignment alignment;
  };
  struct Cell {
    std::string text;
    CellColour colour;
  };
  std::string title;
  std::vector<Column> columns;
  std::vector<Cell> cells;  // row after row
};

enum class TableFormat { kXlsx, kCsv };

ShownTable shown_table(const QAbstractItemModel& rows, const QString& title);

CellAlignment column_alignment(const QAbstractItemModel& rows, int column);

// The selected cells under their heads, as they are shown, tabs between them: what a spreadsheet takes from the
// clipboard. Inside the rows and columns that the selection touches, what is not selected is empty.
QString selected_text(const QAbstractItemModel& rows, const QItemSelection& selection);

// "Suma 3780,00; vidurkis 1260,00; reikšmių 3" of the selected cells that are numbers; of whole rows those in the
// column `current`, which is then named. "" when there are less than two. Exact to the last decimal that is shown.
QString selected_sums(const QAbstractItemModel& rows, const QItemSelection& selection, int current);

}  // namespace quor
