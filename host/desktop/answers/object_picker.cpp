#include "host/desktop/answers/object_picker.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

#include "host/desktop/render/header_widths.h"
#include "host/desktop/render/row_delegate.h"
#include "host/requests/object_lists.h"

namespace quor {

namespace {

constexpr int kRowsMeasured = 200;
constexpr int kWidest = 900, kNarrowest = 420, kHeight = 460;

QString text_of(const Recordset& list, FieldHandle field) {
  return list.is_null(field) ? QString() : QString::fromStdString(list.field(field).to_text());
}

// "Žukas" as "zukas": who searches need not have Lithuanian letters on the keyboard. The folding of record sets
// (case_folding.h) would not do: it tells marks apart.
QString folded(const QString& text) {
  QString result = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
  result.removeIf([](QChar letter) { return letter.isMark(); });
  return result;
}

}  // namespace

PickModel::PickModel(Recordset& list, QObject* parent) : QAbstractTableModel(parent) {
  const FieldHandle key = list.handle(kKeyField);
  std::vector<FieldHandle> columns;
  for (std::size_t i = 0; i < list.field_count(); ++i) {
    if (i == key.index) continue;
    columns.push_back({i});
    heads_ << QString::fromStdString(list.field_info({i}).name);
  }
  if (list.RecordCount() > 0) list.MoveFirst();
  for (; !list.Eof(); list.MoveNext()) {
    keys_.push_back(text_of(list, key));
    QStringList& texts = texts_.emplace_back();
    QStringList& texts_folded = folded_.emplace_back();
    for (const FieldHandle column : columns) {
      texts << text_of(list, column);
      texts_folded << folded(texts.back());
    }
  }
  show_matches({});
}

void PickModel::show_matches(const QString& text) {
  const QStringList words = folded(text).split(' ', Qt::SkipEmptyParts);
  const auto fits = [&](const QStringList& row) {
    return std::all_of(words.begin(), words.end(), [&](const QString& word) {
      return std::any_of(row.begin(), row.end(), [&](const QString& cell) { return cell.contains(word); });
    });
  };
  beginResetModel();
  shown_.clear();
  for (std::size_t row = 0; row < texts_.size(); ++row) {
    if (fits(folded_[row])) shown_.push_back(row);
  }
  endResetModel();
}

int PickModel::row_of(const std::string& key) const {
  const QString wanted = QString::fromStdString(key);
  const auto found = std::find_if(shown_.begin(), shown_.end(), [&](std::size_t row) { return keys_[row] == wanted; });
  return found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
}

int PickModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}
int PickModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(heads_.size());
}

QVariant PickModel::data(const QModelIndex& index, int role) const {
  if (role != Qt::DisplayRole || !index.isValid()) return {};
  return texts_[shown_[static_cast<std::size_t>(index.row())]][index.column()];
}

QVariant PickModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(heads_.value(section)) : QVariant();
}

ObjectPicker::ObjectPicker(Recordset& list, const std::string& current, const QString& title, QWidget* parent)
    : QDialog(parent),
      model_(new PickModel(list, this)),
      search_(new QLineEdit(this)),
      view_(new QTreeView(this)),
      count_(new QLabel(this)) {
  setWindowTitle(title);
  search_->setPlaceholderText("Ieškoti…");
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setAlternatingRowColors(true);
  view_->setItemDelegate(new RowDelegate(view_));
  view_->setModel(model_);
  view_->header()->setResizeContentsPrecision(kRowsMeasured);
  for (int column = 0; column < model_->columnCount(); ++column) view_->resizeColumnToContents(column);
  remember_widths(*view_->header(), "picker." + title);

  auto* const buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton("&Gerai", QDialogButtonBox::AcceptRole);
  auto* const cancel = buttons->addButton("&Atšaukti", QDialogButtonBox::RejectRole);
  cancel->setAutoDefault(false);
  ok_->setDefault(true);
  auto* const foot = new QHBoxLayout;
  foot->addWidget(count_, 1);
  foot->addWidget(buttons);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(search_);
  column->addWidget(view_, 1);
  column->addLayout(foot);

  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
  connect(view_, &QTreeView::doubleClicked, this, [this] { pick(); });
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& now) { ok_->setEnabled(now.isValid()); });
  connect(ok_, &QPushButton::clicked, this, [this] { pick(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  resize(size_for_columns());
  search({});
  stand_on(current);
}

void ObjectPicker::search(const QString& text) {
  const QModelIndex before = view_->currentIndex();
  const std::string key = before.isValid() ? model_->key(before.row()) : std::string();
  model_->show_matches(text);
  count_->setText(model_->rowCount() == model_->all_rows()
                      ? QString("Iš viso: %1").arg(model_->all_rows())
                      : QString("Rasta: %1 iš %2").arg(model_->rowCount()).arg(model_->all_rows()));
  stand_on(key);
}

// Else on the first row: what was searched for is mostly there.
void ObjectPicker::stand_on(const std::string& key) {
  const QModelIndex index = model_->index(qMax(0, model_->row_of(key)), 0);
  view_->setCurrentIndex(index);
  if (index.isValid()) view_->scrollTo(index);
  ok_->setEnabled(index.isValid());
}

void ObjectPicker::pick() {
  const QModelIndex index = view_->currentIndex();
  if (!index.isValid()) return;
  picked_ = model_->key(index.row());
  accept();
}

// The keys that move in the list work while one types.
bool ObjectPicker::eventFilter(QObject* watched, QEvent* event) {
  if (watched == search_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
      QCoreApplication::sendEvent(view_, event);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

QSize ObjectPicker::size_for_columns() const {
  const int wanted = view_->header()->length() + view_->verticalScrollBar()->sizeHint().width() + 40;
  return {qBound(kNarrowest, wanted, kWidest), kHeight};
}

}  // namespace quor
