// The objects of a list as rows: those that hold what was typed.
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <string>
#include <vector>

#include "platform/data/recordset.h"

namespace quor {

// The rows of a list that hold what was typed, whatever the letter case and the marks on letters.
class ObjectListModel : public QAbstractTableModel {
 public:
  static constexpr int kLevelRole = Qt::UserRole;  // how deep the object lies below others (kLevelField)

  // Takes the texts out of the list (see object_lists.h), whose cursor then stands anywhere.
  ObjectListModel(Recordset& list, QObject* parent);

  // Every word of the text must stand somewhere in the row.
  void show_matches(const QString& text);
  std::string key(int row) const { return keys_[shown_[static_cast<std::size_t>(row)]].toStdString(); }
  // -1 when the key is not shown.
  int row_of(const std::string& key) const;
  int all_rows() const { return static_cast<int>(keys_.size()); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QStringList heads_;
  std::vector<QString> keys_;
  std::vector<int> levels_;
  std::vector<QStringList> texts_;
  std::vector<QStringList> folded_;  // the same without case and marks
  std::vector<std::size_t> shown_;
};

}  // namespace quor
