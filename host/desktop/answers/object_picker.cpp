#include "host/desktop/answers/object_picker.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "host/desktop/render/header_widths.h"
#include "host/desktop/render/row_delegate.h"

namespace quor {

namespace {

constexpr int kWidest = 900, kNarrowest = 420, kHeight = 460;

}  // namespace

ObjectPicker::ObjectPicker(Recordset& list, const std::string& current, const QString& title, QWidget* parent)
    : QDialog(parent), list_(new ObjectList(list, ObjectList::Sorting::kAsItCame, {}, this)) {
  setWindowTitle(title);
  list_->search().setPlaceholderText("Ieškoti…");
  list_->search().setAccessibleName("Paieška sąraše");
  list_->view().setAccessibleName(title);
  list_->view().setItemDelegate(new RowDelegate(&list_->view()));
  remember_widths(*list_->view().header(), "picker." + title);

  auto* const buttons = new QDialogButtonBox(this);
  ok_ = buttons->addButton("&Gerai", QDialogButtonBox::AcceptRole);
  auto* const cancel = buttons->addButton("&Atšaukti", QDialogButtonBox::RejectRole);
  cancel->setAutoDefault(false);
  ok_->setDefault(true);
  auto* const foot = new QHBoxLayout;
  foot->addWidget(&list_->count(), 1);
  foot->addWidget(buttons);
  auto* const column = new QVBoxLayout(this);
  column->addWidget(list_, 1);
  column->addLayout(foot);

  list_->on_current = [this] { ok_->setEnabled(!list_->current().empty()); };
  connect(&list_->view(), &QTreeView::doubleClicked, this, [this] { pick(); });
  connect(ok_, &QPushButton::clicked, this, [this] { pick(); });
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  resize(size_for_columns());
  list_->stand_on(current);
  list_->on_current();
  list_->search().setFocus();
}

void ObjectPicker::pick() {
  if (list_->current().empty()) return;
  picked_ = list_->current();
  accept();
}

QSize ObjectPicker::size_for_columns() const {
  const QTreeView& view = list_->view();
  const int wanted = view.header()->length() + view.verticalScrollBar()->sizeHint().width() + 40;
  return {qBound(kNarrowest, wanted, kWidest), kHeight};
}

}  // namespace quor
