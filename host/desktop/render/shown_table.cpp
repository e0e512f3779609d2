#include "host/desktop/render/shown_table.h"

#include <algorithm>
#include <set>

#include "host/desktop/render/row_delegate.h"
#include "platform/data/number_text.h"

namespace quor {

namespace {

constexpr int kLeastDecimals = 2;  // of an average
constexpr int kMostDecimals = 6;

QString caption_of(const QAbstractItemModel& rows, int column) {
  return rows.headerData(column, Qt::Horizontal).toString().simplified();
}

struct Sum {
  double sum = 0;
  int count = 0;
  int decimals = 0;

  // Adds up what the cell shows, where that is a number; a percentage counts as its number.
  void add(QString text) {
    text = text.replace(QChar::Nbsp, ' ').trimmed();
    if (text.endsWith('%')) text.chop(1);
    const QByteArray bytes = text.toUtf8();
    const bool letters =
        std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) > '9'; });
    const auto value = letters ? std::nullopt : try_parse_number(bytes.toStdString());
    if (!value) return;
    const auto mark = text.indexOf(kSystem.decimal_sign);
    if (mark >= 0) decimals = qMax(decimals, static_cast<int>(text.trimmed().size() - mark - 1));
    sum += *value;
    ++count;
  }
  QString text() const {
    const int places = qMin(decimals, kMostDecimals);
    const double exact = round_even(sum, places);
    const auto shown = [](double value, int digits) { return QString::fromStdString(fixed_text(value, digits)); };
    return QString("suma %1; vidurkis %2; reikšmių %3")
        .arg(shown(exact, places), shown(exact / count, qMax(places, kLeastDecimals)))
        .arg(count);
  }
};

bool whole_rows(const QAbstractItemModel& rows, const QItemSelection& selection) {
  return std::all_of(selection.begin(), selection.end(),
                     [&](const auto& range) { return range.width() == rows.columnCount(); });
}

}  // namespace

CellAlignment column_alignment(const QAbstractItemModel& rows, int column) {
  const QVariant side = rows.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole);
  const bool as_flags = side.metaType() == QMetaType::fromType<Qt::Alignment>();
  const int value = as_flags ? static_cast<int>(side.value<Qt::Alignment>().toInt()) : side.toInt();
  return (value & Qt::AlignRight) != 0 ? CellAlignment::kRight : CellAlignment::kLeft;
}

ShownTable shown_table(const QAbstractItemModel& rows, const QString& title) {
  ShownTable table{title.toStdString(), {}, {}};
  for (int column = 0; column < rows.columnCount(); ++column) {
    table.columns.push_back({caption_of(rows, column).toStdString(), column_alignment(rows, column)});
  }
  for (int row = 0; row < rows.rowCount(); ++row) {
    for (int column = 0; column < rows.columnCount(); ++column) {
      const QModelIndex cell = rows.index(row, column);
      const bool red = cell.data(RowDelegate::kRedRole).toBool();
      table.cells.push_back(
          {cell.data().toString().trimmed().toStdString(), red ? CellColour::kRed : CellColour::kNormal});
    }
  }
  return table;
}

QString selected_text(const QAbstractItemModel& rows, const QItemSelection& selection) {
  if (selection.isEmpty()) return {};
  std::set<int> lines, columns;
  for (const QItemSelectionRange& range : selection) {
    for (int row = range.top(); row <= range.bottom(); ++row) lines.insert(row);
    for (int column = range.left(); column <= range.right(); ++column) columns.insert(column);
  }
  const bool whole = whole_rows(rows, selection);
  QStringList text, heads;
  for (const int column : columns) heads << caption_of(rows, column);
  text << heads.join('\t');
  for (const int row : lines) {
    QStringList cells;
    for (const int column : columns) {
      const QModelIndex cell = rows.index(row, column);
      cells << (whole || selection.contains(cell) ? cell.data().toString().simplified() : QString());
    }
    text << cells.join('\t');
  }
  return text.join('\n') + '\n';
}

QString selected_sums(const QAbstractItemModel& rows, const QItemSelection& selection, int current) {
  const bool whole = whole_rows(rows, selection);
  Sum sum;
  for (const QItemSelectionRange& range : selection) {
    const int left = whole ? current : range.left(), right = whole ? current : range.right();
    for (int row = range.top(); row <= range.bottom(); ++row) {
      for (int column = left; column <= right; ++column) sum.add(rows.index(row, column).data().toString());
    }
  }
  if (sum.count < 2) return {};
  const QString text = sum.text();
  return whole ? caption_of(rows, current) + ": " + text : 'S' + text.mid(1);
}

}  // namespace quor
