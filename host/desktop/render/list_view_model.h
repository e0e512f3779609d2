// A form's list for Qt's views, straight on the list's own rows: nothing is copied.
#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "platform/toolkit/list_view.h"

namespace quor {

class ListViewModel : public QAbstractTableModel {
 public:
  // `check` is called when the user changes over a row's check box.
  ListViewModel(const ListView& list, std::function<void(std::size_t)> check, QObject* parent);

  // The list's rows, cells or captions have changed, all at once.
  void list_changed();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ListView& list_;
  std::function<void(std::size_t)> check_;
  int rows_ = 0;  // as the views know them
};

}  // namespace quor
