#include "host/desktop/window/object_list_pane.h"

#include <QCollator>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QShortcut>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

#include "host/desktop/answers/object_picker.h"
#include "host/desktop/render/header_widths.h"
#include "host/desktop/window/registered_icons.h"
#include "host/requests/object_lists.h"

namespace quor {

namespace {

constexpr int kRowsMeasured = 200;
constexpr int kWidestColumn = 420;

std::shared_ptr<Recordset> no_objects() {
  auto list = std::make_shared<Recordset>();
  list->Fields().Append(kKeyField, FieldType::kText);
  list->Open();
  return list;
}

// Numbers by their value, all else in Lithuanian order.
class SortedRows : public QSortFilterProxyModel {
 public:
  SortedRows(const QIcon& icon, QObject* parent) : QSortFilterProxyModel(parent), icon_(icon) {
    collator_.setNumericMode(true);
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::DecorationRole && index.column() == 0) return icon_;
    if (role == Qt::TextAlignmentRole && is_number(index.data().toString()) && index.column() > 0) {
      return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    }
    return QSortFilterProxyModel::data(index, role);
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

ObjectListPane::ObjectListPane(DesktopApplication& application, const std::string& object_type, QWidget* parent)
    : QWidget(parent),
      application_(application),
      object_type_(object_type),
      sorted_(new SortedRows(object_icon(application, object_type), this)),
      search_(new QLineEdit(this)),
      view_(new QTreeView(this)),
      count_(new QLabel(this)) {
  search_->setPlaceholderText("Ieškoti sąraše (Ctrl+F)");
  search_->setClearButtonEnabled(true);
  search_->setAccessibleName("Paieška sąraše");
  search_->installEventFilter(this);
  auto* const head = new QHBoxLayout;
  head->addWidget(search_, 1);
  head->addWidget(count_);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(head);
  column->addWidget(view_, 1);
  refresh();
  set_up_view("list." + QString::fromStdString(object_type));
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) { search(text); });
  const auto key = [this](const QKeySequence& sequence, auto act) {
    auto* const shortcut = new QShortcut(sequence, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, act);
  };
  key(Qt::Key_F5, [this] { application_.edge().act(this, [this] { refresh(); }); });
  key(Qt::CTRL | Qt::Key_F, [this] { search_->setFocus(); });
}

void ObjectListPane::set_up_view(const QString& name) {
  view_->setModel(sorted_);
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setAlternatingRowColors(true);
  view_->setContextMenuPolicy(Qt::CustomContextMenu);
  view_->installEventFilter(this);
  QHeaderView& header = *view_->header();
  header.setSortIndicator(-1, Qt::AscendingOrder);  // as the list came, until the user wants another order
  view_->setSortingEnabled(true);
  header.setResizeContentsPrecision(kRowsMeasured);
  header.setStretchLastSection(false);
  for (int i = 0; i < sorted_->columnCount(); ++i) {
    view_->resizeColumnToContents(i);
    header.resizeSection(i, qBound(110, header.sectionSize(i) + 16, kWidestColumn));
  }
  remember_widths(header, name);
  connect(view_, &QTreeView::doubleClicked, this, [this] { key_pressed(Qt::Key_Return); });
  connect(view_, &QTreeView::customContextMenuRequested, this, [this](const QPoint& place) { asked(place); });
  view_->setCurrentIndex(sorted_->index(0, 0));
}

// ---- the list

void ObjectListPane::refresh() {
  refusal_ = application_.guard().view_refusal(object_type_);
  const auto ui = refusal_.empty() ? application_.GetQuorObjectUI(object_type_) : nullptr;
  auto list = ui ? ui->GetQuorObjectList(object_type_, "", "") : nullptr;
  if (!list && refusal_.empty() && model_ != nullptr) return;  // what was shown stays
  if (!list) list = no_objects();
  const std::string key = current();
  PickModel* const before = model_;
  model_ = new PickModel(*list, this);
  model_->show_matches(search_->text());
  sorted_->setSourceModel(model_);
  delete before;
  stand_on(key);
  show_count();
}

void ObjectListPane::search(const QString& text) {
  const std::string key = current();
  model_->show_matches(text);
  stand_on(key);
  show_count();
}

void ObjectListPane::show_count() {
  if (!refusal_.empty()) return count_->setText(QString::fromStdString(refusal_));
  const int shown = model_->rowCount(), all = model_->all_rows();
  count_->setText(shown == all ? QString("Iš viso: %1").arg(all) : QString("Rasta: %1 iš %2").arg(shown).arg(all));
}

std::string ObjectListPane::current() const {
  const QModelIndex index = view_->currentIndex();
  return index.isValid() ? model_->key(sorted_->mapToSource(index).row()) : "";
}

// Else on the first row: what was searched for is mostly there.
void ObjectListPane::stand_on(const std::string& key) {
  const int row = model_->row_of(key);
  const QModelIndex index = row < 0 ? sorted_->index(0, 0) : sorted_->mapFromSource(model_->index(row, 0));
  view_->setCurrentIndex(index);
  if (index.isValid()) view_->scrollTo(index);
}

void ObjectListPane::focus_list() { view_->setFocus(); }

// ---- what the user does

bool ObjectListPane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  // The keys that move in the list work while one types.
  if (watched == search_ && (key == Qt::Key_Up || key == Qt::Key_Down)) {
    view_->setFocus();
    QCoreApplication::sendEvent(view_, event);
    return true;
  }
  const bool opens = key == Qt::Key_Return || key == Qt::Key_Enter;
  if ((watched == view_ || opens) && key_pressed(key)) return true;
  return QWidget::eventFilter(watched, event);
}

bool ObjectListPane::key_pressed(int key) {
  const std::string object = current();
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (!object.empty()) want(place_of_object(object), MenuPurpose::kOpen);
      return true;
    case Qt::Key_Insert:
      want(place_of_type(object_type_), MenuPurpose::kNew);
      return true;
    case Qt::Key_Delete:
      if (!object.empty()) want(place_of_object(object), MenuPurpose::kDelete);
      return true;
    default:
      return false;
  }
}

void ObjectListPane::want(const MenuPlace& place, MenuPurpose purpose) {
  if (on_want) on_want(place, purpose);
}

// Beside the rows, it is the type's place.
void ObjectListPane::asked(const QPoint& place) {
  if (!on_menu) return;
  const QModelIndex at = view_->indexAt(place);
  on_menu(at.isValid() ? place_of_object(model_->key(sorted_->mapToSource(at).row())) : place_of_type(object_type_),
          view_->viewport()->mapToGlobal(place));
}

}  // namespace quor
