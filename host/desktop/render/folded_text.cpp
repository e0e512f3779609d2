#include "host/desktop/render/folded_text.h"

#include <algorithm>

namespace quor {

namespace {

QStringList folded_cells(const QAbstractItemModel& rows, int row) {
  QStringList cells;
  for (int column = 0; column < rows.columnCount(); ++column) {
    cells << folded(rows.index(row, column).data().toString());
  }
  return cells;
}

}  // namespace

QString folded(const QString& text) {
  QString result = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
  result.removeIf([](QChar letter) { return letter.isMark(); });
  return result;
}

QStringList folded_words(const QString& text) { return folded(text).split(' ', Qt::SkipEmptyParts); }

bool holds_words(const QStringList& cells, const QStringList& words) {
  return std::all_of(words.begin(), words.end(), [&](const QString& word) {
    return std::any_of(cells.begin(), cells.end(), [&](const QString& cell) { return cell.contains(word); });
  });
}

std::optional<FoundCell> find_row(const QAbstractItemModel& rows, const QModelIndex& current, const QString& text,
                                  SearchFrom from) {
  const QStringList words = folded_words(text);
  const int count = rows.rowCount(), step = from == SearchFrom::kPreviousRow ? -1 : 1;
  if (words.isEmpty() || count == 0) return {};
  int row = current.isValid() ? current.row() : step > 0 ? 0 : count - 1;
  bool wrapped = false;
  if (from != SearchFrom::kThisRow && current.isValid()) row += step;
  for (int looked = 0; looked < count; ++looked, row += step) {
    if (row < 0 || row >= count) {
      wrapped = true;
      row = step > 0 ? 0 : count - 1;
    }
    const QStringList cells = folded_cells(rows, row);
    if (!holds_words(cells, words)) continue;
    const auto cell =
        std::find_if(cells.begin(), cells.end(), [&](const auto& c) { return c.contains(words.front()); });
    return FoundCell{rows.index(row, static_cast<int>(cell - cells.begin())), wrapped};
  }
  return {};
}

QModelIndex find_row_beginning(const QAbstractItemModel& rows, const QModelIndex& current, const QString& text) {
  const QString wanted = folded(text);
  const int count = rows.rowCount(), first = qMax(0, current.row());
  for (int looked = 0; looked < count; ++looked) {
    const int row = (first + looked) % count;
    const QStringList cells = folded_cells(rows, row);
    for (int column = 0; column < cells.size(); ++column) {
      if ((' ' + cells[column]).contains(' ' + wanted)) return rows.index(row, column);
    }
  }
  return {};
}

}  // namespace quor
