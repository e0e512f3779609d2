// A grid's cells for Qt's table: what is typed goes to the grid, whose cells are shown.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "platform/toolkit/grid.h"

namespace quor {

class GridModel : public QAbstractTableModel {
 public:
  // `enter` is told what was typed into a cell. The grid outlives the model.
  using Enter = std::function<void(std::size_t row, std::size_t column, const std::string& text)>;
  GridModel(const Grid& grid, Enter enter, QObject* parent);

  void grid_changed();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const Grid& grid_;
  const Enter enter_;
  int rows_;
  int columns_;
};

}  // namespace quor
