// Text as it is searched for: without letter case and marks on letters, "Žukas" as "zukas". Who searches need not have
// Lithuanian letters on the keyboard. (The folding of record sets, case_folding.h, tells marks apart.)
#pragma once

#include <QAbstractItemModel>
#include <QStringList>
#include <optional>

namespace quor {

QString folded(const QString& text);
// The words of what was typed, folded; none of a blank text.
QStringList folded_words(const QString& text);
// True when each word stands somewhere in the cells, which are folded.
bool holds_words(const QStringList& cells, const QStringList& words);

struct FoundCell {
  QModelIndex cell;      // in which the first word stands
  bool wrapped = false;  // the search has passed the end of the rows
};
enum class SearchFrom { kThisRow, kNextRow, kPreviousRow };
// The nearest row that holds every word of the text, from the row of `current` on (the first when it is invalid) and
// around; none for a blank text.
std::optional<FoundCell> find_row(const QAbstractItemModel& rows, const QModelIndex& current, const QString& text,
                                  SearchFrom from);

// The nearest row at or behind `current`, and around, in which a word of a cell begins with the text; invalid for none.
QModelIndex find_row_beginning(const QAbstractItemModel& rows, const QModelIndex& current, const QString& text);

}  // namespace quor
