#include "host/desktop/render/list_view_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

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

QVariant grey(CellColour colour) {
  if (colour != CellColour::kGreyText) return {};
  return QGuiApplication::palette().color(QPalette::Disabled, QPalette::Text);
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

void ListViewModel::list_changed() {
  const int rows = static_cast<int>(list_.row_count());
  if (rows != rows_) {
    beginResetModel();
    rows_ = rows;
    endResetModel();
  } else if (rows > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, columnCount() - 1));
  }
  emit headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
}

int ListViewModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListViewModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(list_.columns().size());
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  // A view may ask between a change and its notice.
  if (!index.isValid() || row >= list_.row_count()) return {};
  const auto column = static_cast<std::size_t>(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return QString::fromStdString(list_.text(row, column));
    case Qt::TextAlignmentRole:
      return alignment(list_.columns()[column]);
    case Qt::ForegroundRole:
      return grey(list_.colour(row, column));
    case RowDelegate::kRedRole:
      return list_.colour(row, column) == CellColour::kRed;
    case Qt::FontRole:
      return red_font(list_.colour(row, column));
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return list_.colour(row, column) == CellColour::kRed ? QVariant("Viršija ribą") : QVariant();
    case Qt::CheckStateRole:
      if (column > 0 || !list_.has_check_boxes()) return {};
      return list_.checked(row) ? Qt::Checked : Qt::Unchecked;
    default:
      return {};
  }
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& /*value*/, int role) {
  if (role != Qt::CheckStateRole || !index.isValid()) return false;
  check_(static_cast<std::size_t>(index.row()));
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
