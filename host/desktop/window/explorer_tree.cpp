#include "host/desktop/window/explorer_tree.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyle>
#include <algorithm>

#include "host/desktop/window/registered_icons.h"
#include "host/requests/object_lists.h"
#include "host/store/object_codes.h"

namespace quor {

namespace {

enum Kind { kSection, kGroup, kType, kCommand };
constexpr int kKindRole = Qt::UserRole, kTypeRole = Qt::UserRole + 1, kContextRole = Qt::UserRole + 2,
              kEntryRole = Qt::UserRole + 3, kPurposeRole = Qt::UserRole + 4;

QTreeWidgetItem* item(Kind kind, const std::string& caption, const QIcon& icon, const MenuPlace& place) {
  auto* const made = new QTreeWidgetItem({QString::fromStdString(caption)});
  made->setIcon(0, icon);
  made->setToolTip(0, made->text(0));
  made->setData(0, kKindRole, kind);
  made->setData(0, kTypeRole, QString::fromStdString(place.object_type));
  made->setData(0, kContextRole, QString::fromStdString(place.context));
  return made;
}

int kind_of(const QTreeWidgetItem& of) { return of.data(0, kKindRole).toInt(); }

MenuEntry entry_of(const QTreeWidgetItem& command) {
  return {command.data(0, kEntryRole).toString().toStdString(), command.text(0).toStdString(),
          static_cast<MenuPurpose>(command.data(0, kPurposeRole).toInt())};
}

// Whether a group of that section holds the type.
bool is_grouped(const RegisteredLayout& layout, const std::string& object_type) {
  return std::any_of(layout.groups.begin(), layout.groups.end(), [&](const auto& group) {
    return std::count(group->objects.begin(), group->objects.end(), object_type) > 0;
  });
}

}  // namespace

ExplorerTree::ExplorerTree(DesktopApplication& application, QWidget* parent)
    : QTreeWidget(parent), application_(application) {
  setObjectName("explorer");
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setExpandsOnDoubleClick(false);
  setAccessibleName("Naršyklė");
  for (const auto& layout : application.registrations().layouts) add_layout(*layout);
  add_host_types();
  expandAll();
  connect(this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* now) { turned_to(now); });
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* now) { turned_to(now); });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* now) { opened(now); });
  connect(this, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& place) { asked(place); });
}

// ---- what stands in it

void ExplorerTree::add_layout(const RegisteredLayout& layout) {
  auto* const section = item(kSection, layout.caption, layout_icon(application_.registrations(), layout.code), {});
  addTopLevelItem(section);
  for (const auto& group : layout.groups) add_group(*section, *group);
  for (const auto& [code, type] : application_.registrations().types) {
    if (type.registry != layout.registry || is_grouped(layout, code)) continue;
    if (!menu_of(application_, place_of_type(code)).empty()) add_type(*section, code);
  }
}

void ExplorerTree::add_group(QTreeWidgetItem& section, const RegisteredGroup& group) {
  const MenuPlace place = place_of_group(application_, group.object_type);
  auto* const added = item(kGroup, group.caption, style()->standardIcon(QStyle::SP_DirOpenIcon), place);
  section.addChild(added);
  for (const std::string& object_type : group.objects) add_type(*added, object_type);
  for (const MenuEntry& entry : menu_of(application_, place)) {
    if (is_separator(entry)) continue;
    auto* const command = item(kCommand, entry.Caption, layout_icon(application_.registrations(), entry.Icon), place);
    command->setData(0, kEntryRole, QString::fromStdString(entry.Identifier));
    command->setData(0, kPurposeRole, static_cast<int>(entry.Purpose));
    added->addChild(command);
  }
}

void ExplorerTree::add_type(QTreeWidgetItem& parent, const std::string& object_type) {
  parent.addChild(item(kType, application_.type_caption(object_type), object_icon(application_, object_type),
                       place_of_type(object_type)));
}

void ExplorerTree::add_host_types() {
  const struct {
    const char* caption;
    std::vector<const char*> types;
  } sections[] = {{"Darbuotojai ir padaliniai", {kEmployeeType, kDepartmentType}},
                  {"Mėnuo", {kMonthType, kWorkedTimeType}},
                  {"Konstantos, normos ir kodai", {kConstantType, kNormType, kTimeCodeType, kSalaryCodeType}}};
  for (const auto& section : sections) {
    auto* const group = item(kSection, section.caption, style()->standardIcon(QStyle::SP_DirOpenIcon), {});
    for (const char* object_type : section.types) {
      if (!listed_caption(object_type).empty()) add_type(*group, object_type);
    }
    if (group->childCount() == 0) {
      delete group;
    } else {
      addTopLevelItem(group);
    }
  }
}

// ---- what the user does

MenuPlace ExplorerTree::place_of(const QTreeWidgetItem& of) {
  return {of.data(0, kTypeRole).toString().toStdString(), of.data(0, kContextRole).toString().toStdString(), ""};
}

void ExplorerTree::stand_on(const std::string& object_type) {
  const QSignalBlocker silent(this);
  for (QTreeWidgetItemIterator each(this); *each != nullptr; ++each) {
    if (kind_of(**each) != kType || (!object_type.empty() && place_of(**each).object_type != object_type)) continue;
    setCurrentItem(*each);
    return;
  }
}

std::string ExplorerTree::current_type() const {
  return currentItem() == nullptr ? "" : place_of(*currentItem()).object_type;
}

void ExplorerTree::turned_to(QTreeWidgetItem* now) {
  if (now != nullptr && kind_of(*now) == kType && on_type) on_type(place_of(*now).object_type);
}

void ExplorerTree::opened(QTreeWidgetItem* now) {
  if (now == nullptr) return;
  if (kind_of(*now) == kCommand) {
    if (on_entry) on_entry(place_of(*now), entry_of(*now));
  } else if (kind_of(*now) != kType) {
    now->setExpanded(!now->isExpanded());
  }
}

void ExplorerTree::asked(const QPoint& place) {
  QTreeWidgetItem* const at = itemAt(place);
  if (at == nullptr || kind_of(*at) == kSection || !on_menu) return;
  on_menu(place_of(*at), viewport()->mapToGlobal(place));
}

void ExplorerTree::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    opened(currentItem());
  } else {
    QTreeWidget::keyPressEvent(event);
  }
}

}  // namespace quor
