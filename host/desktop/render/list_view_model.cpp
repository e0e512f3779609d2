#include "host/desktop/render/list_view_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>

#include "host/desktop/render/row_delegate.h"

namespace quor {

namespace {

QVariant alignment(const ListColumn& column) {
  return QVariant::fromValue(Qt::AlignVCenter |
                             (column.alignment == CellAlignment::kRight ? Qt::AlignRight : Qt::AlignLeft));
}

QVariant wrapped(const ListColumn& column) {
  return QVariant(Qt::AlignVCenter | Qt::TextWordWrap |
                  (column.alignment == CellAlignment::kRight ? Qt::AlignRight : Qt::AlignLeft));
}

// Red is the delegate's, which knows the ground. A green that can be read on a light theme, and on a dark one.
QVariant text_colour(CellColour colour) {
  const QPalette palette = QGuiApplication::palette();
  if (colour == CellColour::kGreyText) return palette.color(QPalette::Disabled, QPalette::Text);
  if (colour != CellColour::kGreen) return {};
  return palette.color(QPalette::Base).lightness() > 127 ? QColor(0, 112, 0) : QColor(130, 220, 130);
}

// Colour is not the only sign: not everybody sees it.
QVariant red_font(CellColour colour) {
  if (colour != CellColour::kRed) return {};
  QFont bold;
  bold.setBold(true);
  return bold;
}

}  // namespace

ListViewModel::ListViewModel(const ListView& list, std::function<void(std::size_t)> check, QObject* parent)
    : QAbstractTableModel(parent), list_(list), check_(std::move(check)), rows_(static_cast<int>(list.row_count())) {}

bool ListViewModel::is_marked(std::size_t list_row) const {
  if (list_.has_check_boxes() && list_.checked(list_row)) return true;
  for (std::size_t column = 0; column < list_.columns().size(); ++column) {
    if (list_.colour(list_row, column) == CellColour::kRed) return true;
  }
  return false;
}

// The row on which the user stands does not go from under him.
std::vector<std::size_t> ListViewModel::marked_rows() const {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < list_.row_count(); ++row) {
    if (is_marked(row) || list_.selected() == row) rows.push_back(row);
  }
  return rows;
}

void ListViewModel::show_rows(bool marked_only, std::vector<std::size_t> shown) {
  beginResetModel();
  marked_only_ = marked_only;
  shown_ = std::move(shown);
  rows_ = static_cast<int>(marked_only_ ? shown_.size() : list_.row_count());
  endResetModel();
}

void ListViewModel::list_changed() {
  std::vector<std::size_t> shown = marked_only_ ? marked_rows() : std::vector<std::size_t>();
  const int rows = static_cast<int>(marked_only_ ? shown.size() : list_.row_count());
  if (rows != rows_ || shown != shown_) {
    show_rows(marked_only_, std::move(shown));
  } else if (rows > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, columnCount() - 1));
  }
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

void ListViewModel::show_marked_only(bool marked_only) {
  std::vector<std::size_t> shown;
  for (std::size_t row = 0; marked_only && row < list_.row_count(); ++row) {
    if (is_marked(row)) shown.push_back(row);
  }
  show_rows(marked_only, std::move(shown));
}

void ListViewModel::show_row(std::size_t list_row) {
  if (shown_row(list_row) || list_row >= list_.row_count()) return;
  std::vector<std::size_t> shown = shown_;
  shown.insert(std::lower_bound(shown.begin(), shown.end(), list_row), list_row);
  show_rows(marked_only_, std::move(shown));
}

std::optional<int> ListViewModel::shown_row(std::size_t list_row) const {
  const auto row = nearest_row(list_row);
  return row && this->list_row(*row) == list_row ? row : std::nullopt;
}

std::optional<int> ListViewModel::nearest_row(std::size_t list_row) const {
  if (rows_ == 0) return {};
  if (!marked_only_) return qMin(static_cast<int>(list_row), rows_ - 1);
  const auto found = std::lower_bound(shown_.begin(), shown_.end(), list_row);
  return static_cast<int>(qMin(found - shown_.begin(), static_cast<std::ptrdiff_t>(shown_.size()) - 1));
}

int ListViewModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListViewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.columns().size());
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rows_) return {};
  const std::size_t row = list_row(index.row());
  // A view may ask between a change and its notice.
  if (row >= list_.row_count()) return {};
  const auto column = static_cast<std::size_t>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(list_.text(row, column));
    case Qt::TextAlignmentRole:
      return alignment(list_.columns()[column]);
    case Qt::ForegroundRole:
      return text_colour(list_.colour(row, column));
    case RowDelegate::kRedRole:
      return list_.colour(row, column) == CellColour::kRed;
    case Qt::FontRole:
      return red_font(list_.colour(row, column));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return list_.colour(row, column) == CellColour::kRed ? QVariant("Viršija ribą arba netinka") : QVariant();
    case Qt::CheckStateRole:
      if (column > 0 || !list_.has_check_boxes()) return {};
      return list_.checked(row) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& /*value*/, int role) {
  if (role != Qt::CheckStateRole || !index.isValid()) return false;
  check_(list_row(index.row()));
  return true;
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const ListColumn& column = list_.columns()[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return QString::fromStdString(column.caption);
  if (role == Qt::TextAlignmentRole) return wrapped(column);
  return {};
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (index.column() == 0 && list_.has_check_boxes()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

}  // namespace quor
