#include "host/desktop/answers/object_list.h"

#include <QCollator>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include "host/desktop/answers/object_list_model.h"

namespace quor {

namespace {

constexpr int kRowsMeasured = 200;
constexpr int kIndent = 4;  // blanks a level

// Numbers by their value, all else in Lithuanian order.
class SortedRows : public QSortFilterProxyModel {
 public:
  SortedRows(const QIcon& icon, QObject* parent) : QSortFilterProxyModel(parent), icon_(icon) {
    collator_.setNumericMode(true);
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DecorationRole && index.column() == 0 && !icon_.isNull()) return icon_;
    if (role == Qt::TextAlignmentRole && is_number(index.data().toString()) && index.column() > 0) {
      return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    const QVariant shown = QSortFilterProxyModel::data(index, role);
    // Sorted by a column, rows no longer stand behind the one above them.
    if (role != Qt::DisplayRole || index.column() > 0 || sortColumn() >= 0) return shown;
    return QString(kIndent * index.data(ObjectListModel::kLevelRole).toInt(), ' ') + shown.toString();
  }

  // The head of a column of numbers stands over them.
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::TextAlignmentRole || rowCount() == 0) {
      return QSortFilterProxyModel::headerData(section, orientation, role);
    }
    return data(index(0, section), role);
  }

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
    const QString a = left.data().toString(), b = right.data().toString();
    bool a_is = false, b_is = false;
    const double a_value = locale_.toDouble(a, &a_is), b_value = locale_.toDouble(b, &b_is);
    return a_is && b_is ? a_value < b_value : collator_.compare(a, b) < 0;
  }

 private:
  bool is_number(const QString& text) const {
    bool is = false;
    locale_.toDouble(text, &is);
    return is;
  }

  const QIcon icon_;
  const QLocale locale_{QLocale::Lithuanian, QLocale::Lithuania};
  QCollator collator_{locale_};
};

}  // namespace

ObjectList::ObjectList(Recordset& list, Sorting sorting, const QIcon& icon, QWidget* parent)
    : QWidget(parent),
      rows_(new SortedRows(icon, this)),
      search_(new QLineEdit(this)),
      view_(new TableView(this)),
      count_(new QLabel(this)) {
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  auto* const head = new QHBoxLayout;
  head->addWidget(search_, 1);
  head->addWidget(count_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addLayout(head);
  column->addWidget(view_, 1);
  show_list(list);
  set_up_view(sorting);
  connect(search_, &QLineEdit::textChanged, this, [this] { show_matches(); });
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
    if (on_current) on_current();
  });
}

void ObjectList::set_up_view(Sorting sorting) {
  view_->setModel(rows_);
  if (sorting == Sorting::kAsItCame) view_->setSelectionMode(TableView::SingleSelection);  // one is picked
  view_->installEventFilter(this);
  QHeaderView& header = *view_->header();
  if (sorting == Sorting::kByTheUser) {
    header.setSortIndicator(-1, Qt::AscendingOrder);  // as the list came, until the user wants another order
    view_->setSortingEnabled(true);
  }
  header.setResizeContentsPrecision(kRowsMeasured);
  for (int i = 0; i < rows_->columnCount(); ++i) view_->resizeColumnToContents(i);
  stand_on("");
}

void ObjectList::show_list(Recordset& list) {
  const std::string key = current();
  ObjectListModel* const before = model_;
  model_ = new ObjectListModel(list, this);
  model_->show_matches(search_->text());
  rows_->setSourceModel(model_);
  delete before;
  stand_on(key);
  show_count();
}

void ObjectList::show_matches() {
  const std::string key = current();
  model_->show_matches(search_->text());
  stand_on(key);
  show_count();
}

void ObjectList::find_again(SearchFrom from) {
  if (search_->text().trimmed().isEmpty()) return search_->setFocus();
  const auto found = view_->find(search_->text(), from);
  show_count();
  if (!found || !found->wrapped) return;
  count_->setText(count_->text() + (from == SearchFrom::kPreviousRow ? ", nuo pabaigos" : ", nuo pradžios"));
}

void ObjectList::show_instead_of_count(const std::string& text) {
  instead_of_count_ = text;
  show_count();
}

void ObjectList::show_count() {
  if (!instead_of_count_.empty()) return count_->setText(QString::fromStdString(instead_of_count_));
  const int shown = model_->rowCount(), all = model_->all_rows();
  count_->setText(shown == all ? QString("Iš viso: %1").arg(all) : QString("Rasta: %1 iš %2").arg(shown).arg(all));
}

std::string ObjectList::current() const {
  const QModelIndex index = view_->currentIndex();
  return index.isValid() ? model_->key(rows_->mapToSource(index).row()) : "";
}

std::string ObjectList::key_at(const QPoint& place) const {
  const QModelIndex at = view_->indexAt(place);
  return at.isValid() ? model_->key(rows_->mapToSource(at).row()) : "";
}

void ObjectList::stand_on(const std::string& key) {
  const int row = model_->row_of(key);
  const QModelIndex index = row < 0 ? rows_->index(0, 0) : rows_->mapFromSource(model_->index(row, 0));
  view_->setCurrentIndex(index);
  if (index.isValid()) view_->scrollTo(index);
}

bool ObjectList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
  if (watched == search_ && moves) {
    QCoreApplication::sendEvent(view_, event);
    return true;
  }
  const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
  if ((watched == view_ || opens) && on_key && on_key(key)) return true;
  return QWidget::eventFilter(watched, event);
}

}  // namespace quor
