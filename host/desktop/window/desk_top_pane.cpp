#include "host/desktop/window/desk_top_pane.h"

#include <QKeyEvent>
#include <map>

#include "host/desktop/answers/object_names.h"
#include "host/desktop/window/registered_icons.h"

namespace quor {

namespace {

std::string key_of(const QListWidgetItem& item) { return item.data(Qt::UserRole).toString().toStdString(); }

}  // namespace

DeskTopPane::DeskTopPane(DesktopApplication& application, QWidget* parent)
    : QListWidget(parent), application_(application) {
  setObjectName("desk top");
  setAccessibleName("Darbo stalas");
  setIconSize({16, 16});
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) { open(item); });
  connect(this, &QListWidget::customContextMenuRequested, this, [this](const QPoint& place) { asked(place); });
}

void DeskTopPane::refresh() {
  const std::string stood_on = current();
  clear();
  std::map<std::string, std::shared_ptr<Recordset>> lists;  // by type: one that cannot be read is told once
  for (const std::string& key : application_.desk_top()) {
    const std::string object_type = type_of_key(key);
    const QString type = QString::fromStdString(application_.type_caption(object_type));
    QString name = type;
    if (!application_.guard().view_refusal(object_type).empty()) {
      name += " (neturite teisės)";
    } else {
      const auto [list, is_new] = lists.try_emplace(object_type);
      if (is_new) list->second = list_of_type(application_, object_type);
      const QString listed = list->second ? name_in(*list->second, key) : QString();
      // The type is all that is known of what cannot be read.
      if (list->second) name = listed.isEmpty() ? type + " (panaikinta)" : listed;
    }
    auto* const item = new QListWidgetItem(object_icon(application_, object_type), name, this);
    item->setData(Qt::UserRole, QString::fromStdString(key));
    item->setToolTip(type + ": " + item->text());
    if (key == stood_on) setCurrentItem(item);
  }
}

std::string DeskTopPane::current() const { return currentItem() == nullptr ? "" : key_of(*currentItem()); }

void DeskTopPane::open(QListWidgetItem* item) {
  if (item != nullptr && on_want) on_want(place_of_object(key_of(*item)), MenuPurpose::kOpen);
}

void DeskTopPane::asked(const QPoint& place) {
  const QListWidgetItem* const item = itemAt(place);
  if (item != nullptr && on_menu) on_menu(place_of_object(key_of(*item)), viewport()->mapToGlobal(place));
}

void DeskTopPane::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens) {
    open(currentItem());
  } else if (event->key() == Qt::Key_Delete && currentItem() != nullptr && on_remove) {
    on_remove(key_of(*currentItem()));
  } else {
    QListWidget::keyPressEvent(event);
  }
}

}  // namespace quor
