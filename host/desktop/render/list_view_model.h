// A form's list for Qt's views, straight on the list's own rows: nothing is copied. It may show the marked rows alone:
// those with a red cell, and those whose box is checked. Then its rows have other numbers than the list's.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <optional>
#include <vector>

#include "platform/toolkit/list_view.h"

namespace quor {

class ListViewModel : public QAbstractTableModel {
 public:
  // `check` is called when the user changes over a row's check box.
  ListViewModel(const ListView& list, std::function<void(std::size_t)> check, QObject* parent);

  // The list's rows, cells or captions have changed, all at once.
  void list_changed();
  // The marked rows alone, or all of them.
  void show_marked_only(bool marked_only);
  bool marked_only() const { return marked_only_; }
  // Shows the list's row also when it is not marked, until the rows are shown anew.
  void show_row(std::size_t list_row);

  std::size_t list_row(int row) const {
    return marked_only_ ? shown_[static_cast<std::size_t>(row)] : static_cast<std::size_t>(row);
  }
  // None for a row that is not shown. The first shown one behind it, or else the last one, stands nearest.
  std::optional<int> shown_row(std::size_t list_row) const;
  std::optional<int> nearest_row(std::size_t list_row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  const ListView& list_;
  std::function<void(std::size_t)> check_;
  bool is_marked(std::size_t list_row) const;
  std::vector<std::size_t> marked_rows() const;
  void show_rows(bool marked_only, std::vector<std::size_t> shown);

  int rows_ = 0;  // as the views know them
  bool marked_only_ = false;
  std::vector<std::size_t> shown_;  // the list's rows, ascending, while only marked ones are shown
};

}  // namespace quor
