#include "host/desktop/window/object_list_pane.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>

#include "host/desktop/answers/file_question.h"
#include "host/desktop/answers/object_list.h"
#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/render/header_widths.h"
#include "host/desktop/window/registered_icons.h"
#include "host/requests/object_lists.h"

namespace quor {

namespace {

constexpr int kWidestColumn = 420;

std::shared_ptr<Recordset> no_objects() {
  auto list = std::make_shared<Recordset>();
  list->Fields().Append(kKeyField, FieldType::kText);
  list->Open();
  return list;
}

}  // namespace

ObjectListPane::ObjectListPane(DesktopApplication& application, const std::string& object_type, QWidget* parent)
    : QWidget(parent), application_(application), object_type_(object_type) {
  refresh();
  auto* const column = new QVBoxLayout(this);
  column->addWidget(list_);
  list_->search().setPlaceholderText("Ieškoti sąraše (Ctrl+F)");
  list_->search().setAccessibleName("Paieška sąraše");
  list_->on_key = [this](int key) { return key_pressed(key); };
  set_up_view();
  const auto key = [this](const QKeySequence& sequence, auto act) {
    auto* const shortcut = new QShortcut(sequence, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, this, act);
  };
  key(Qt::Key_F5, [this] { application_.edge().act(this, [this] { refresh(); }); });
  key(Qt::CTRL | Qt::Key_F, [this] { list_->search().setFocus(); });
  key(Qt::Key_F3, [this] { list_->find_again(SearchFrom::kNextRow); });
  key(Qt::SHIFT | Qt::Key_F3, [this] { list_->find_again(SearchFrom::kPreviousRow); });
}

void ObjectListPane::set_up_view() {
  TableView& view = list_->view();
  const std::string caption = application_.type_caption(object_type_);
  view.setAccessibleName(QString::fromStdString(caption));
  view.on_save = [this, &view, title = QString::fromStdString(caption)](TableFormat kind) {
    application_.edge().act(
        this, [&] { ask_and_save_table(shown_table(*view.model(), title), kind, application_.Today(), this); });
  };
  view.setContextMenuPolicy(Qt::CustomContextMenu);
  QHeaderView& header = *view.header();
  header.setStretchLastSection(false);
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&header, &QWidget::customContextMenuRequested, this, [this, &header](const QPoint& place) {
    auto* const menu = new PassingMenu(this);
    for (const ListEntry& entry : entries()) menu->add_choice(entry.caption, entry.run);
    menu->popup(header.viewport()->mapToGlobal(place));
  });
  for (int i = 0; i < header.count(); ++i) {
    header.resizeSection(i, qBound(110, header.sectionSize(i) + 16, kWidestColumn));
  }
  remember_widths(header, "list." + QString::fromStdString(object_type_));
  connect(&view, &QTreeView::doubleClicked, this, [this] { key_pressed(Qt::Key_Return); });
  connect(&view, &QTreeView::customContextMenuRequested, this, [this](const QPoint& place) { asked(place); });
}

void ObjectListPane::refresh() {
  const std::string refusal = application_.guard().view_refusal(object_type_);
  const auto ui = refusal.empty() ? application_.GetQuorObjectUI(object_type_) : nullptr;
  auto list = ui ? ui->GetQuorObjectList(object_type_, "", "") : nullptr;
  if (!list && refusal.empty() && list_ != nullptr) return;  // what was shown stays
  if (!list) list = no_objects();
  if (list_ == nullptr) {
    list_ = new ObjectList(*list, ObjectList::Sorting::kByTheUser, object_icon(application_, object_type_), this);
  } else {
    list_->show_list(*list);
  }
  list_->show_instead_of_count(refusal);
}

void ObjectListPane::stand_on(const std::string& key) { list_->stand_on(key); }
std::string ObjectListPane::current() const { return list_->current(); }
QTreeView& ObjectListPane::view() { return list_->view(); }
std::vector<ListEntry> ObjectListPane::entries() { return list_->view().copy_and_save_entries(); }
void ObjectListPane::focus_list() { list_->view().setFocus(); }

// ---- what the user does

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
  const std::string object = list_->key_at(place);
  on_menu(object.empty() ? place_of_type(object_type_) : place_of_object(object),
          view().viewport()->mapToGlobal(place));
}

}  // namespace quor
