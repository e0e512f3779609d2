#include "host/desktop/render/grid_model.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "host/desktop/render/row_delegate.h"

namespace quor {

namespace {

std::size_t place(int number) { return static_cast<std::size_t>(number); }

// Colour is not the only sign: not everybody sees it.
QVariant red_font(CellColour colour) {
  if (colour != CellColour::kRed) return {};
  QFont bold;
  bold.setBold(true);
  return bold;
}

QVariant grey(CellColour colour) {
  if (colour != CellColour::kGreyText) return {};
  return QGuiApplication::palette().color(QPalette::Disabled, QPalette::Text);
}

}  // namespace

GridModel::GridModel(const Grid& grid, Enter enter, QObject* parent)
    : QAbstractTableModel(parent),
      grid_(grid),
      enter_(std::move(enter)),
      rows_(static_cast<int>(grid.row_count())),
      columns_(static_cast<int>(grid.columns().size())) {}

void GridModel::grid_changed() {
  const int rows = static_cast<int>(grid_.row_count()), columns = static_cast<int>(grid_.columns().size());
  if (rows != rows_ || columns != columns_) {
    beginResetModel();
    rows_ = rows;
    columns_ = columns;
    endResetModel();
  } else if (rows > 0 && columns > 0) {
    emit dataChanged(index(0, 0), index(rows - 1, columns - 1));
    emit headerDataChanged(Qt::Vertical, 0, rows - 1);
    emit headerDataChanged(Qt::Horizontal, 0, columns - 1);
  }
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }
int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = place(index.row()), column = place(index.column());
  // A view may ask between a change and its notice.
  if (!index.isValid() || row >= grid_.row_count() || column >= grid_.columns().size()) return {};
  const CellColour colour = grid_.colour(row, column);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return QString::fromStdString(grid_.text(row, column));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(
          Qt::AlignVCenter |
          (grid_.columns()[column].alignment == CellAlignment::kRight ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::BackgroundRole:
      return grid_.may_edit(row, column) ? QVariant() : QGuiApplication::palette().color(QPalette::Window);
    case Qt::ForegroundRole:
      return grey(colour);
    case RowDelegate::kRedRole:
      return colour == CellColour::kRed;
    case Qt::FontRole:
      return red_font(colour);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return colour == CellColour::kRed ? QVariant("Viršija normą") : QVariant();
    default:
      return {};
  }
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::EditRole || !index.isValid()) return false;
  enter_(place(index.row()), place(index.column()), value.toString().toStdString());
  return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool across = orientation == Qt::Horizontal;
  if (section < 0 || place(section) >= (across ? grid_.columns().size() : grid_.row_count())) return {};
  if (role == Qt::TextAlignmentRole && !across) return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return QString::fromStdString(across ? grid_.columns()[place(section)].caption : grid_.row_head(place(section)));
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (index.isValid() && grid_.may_edit(place(index.row()), place(index.column()))) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace quor
