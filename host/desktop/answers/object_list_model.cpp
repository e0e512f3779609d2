#include "host/desktop/answers/object_list_model.h"

#include <algorithm>
#include <optional>

#include "host/desktop/render/folded_text.h"
#include "host/requests/object_lists.h"

namespace quor {

namespace {

QString text_of(const Recordset& list, FieldHandle field) {
  return list.is_null(field) ? QString() : QString::fromStdString(list.field(field).to_text());
}

}  // namespace

ObjectListModel::ObjectListModel(Recordset& list, QObject* parent) : QAbstractTableModel(parent) {
  const FieldHandle key = list.handle(kKeyField);
  std::optional<FieldHandle> level;
  std::vector<FieldHandle> columns;
  for (std::size_t i = 0; i < list.field_count(); ++i) {
    if (i == key.index) continue;
    if (list.field_info({i}).name == kLevelField) {
      level = FieldHandle{i};
      continue;
    }
    columns.push_back({i});
    heads_ << QString::fromStdString(list.field_info({i}).name);
  }
  if (list.RecordCount() > 0) list.MoveFirst();
  for (; !list.Eof(); list.MoveNext()) {
    keys_.push_back(text_of(list, key));
    levels_.push_back(level ? text_of(list, *level).toInt() : 0);
    QStringList& texts = texts_.emplace_back();
    QStringList& texts_folded = folded_.emplace_back();
    for (const FieldHandle column : columns) {
      texts << text_of(list, column);
      texts_folded << folded(texts.back());
    }
  }
  show_matches({});
}

void ObjectListModel::show_matches(const QString& text) {
  const QStringList words = folded_words(text);
  beginResetModel();
  shown_.clear();
  for (std::size_t row = 0; row < texts_.size(); ++row) {
    if (holds_words(folded_[row], words)) shown_.push_back(row);
  }
  endResetModel();
}

int ObjectListModel::row_of(const std::string& key) const {
  const QString wanted = QString::fromStdString(key);
  const auto found = std::find_if(shown_.begin(), shown_.end(), [&](std::size_t row) { return keys_[row] == wanted; });
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

int ObjectListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}
int ObjectListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(heads_.size());
}

QVariant ObjectListModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == kLevelRole) return levels_[shown_[static_cast<std::size_t>(index.row())]];
  if (role != Qt::DisplayRole) return {};
  return texts_[shown_[static_cast<std::size_t>(index.row())]][index.column()];
}

QVariant ObjectListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(heads_.value(section)) : QVariant();
}

}  // namespace quor
