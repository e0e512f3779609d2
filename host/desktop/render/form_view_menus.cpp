// The menus of a form: those that it opens itself, and what every list adds to them.
#include <QCursor>
#include <QScopedValueRollback>
#include <algorithm>

#include "host/desktop/edge/mnemonics.h"
#include "host/desktop/edge/passing_menu.h"
#include "host/desktop/render/form_view.h"

namespace quor {

namespace {

QString key_name(MenuKey key) {
  switch (key) {
    case MenuKey::kInsert:
      return "\tIns";
    case MenuKey::kEnter:
      return "\tEnter";
    case MenuKey::kDelete:
      return "\tDel";
    default:
      return {};
  }
}

MenuItem* item_of(const PopupMenu& menu, MenuKey key) {
  const auto& items = menu.items();
  const auto found = std::find_if(items.begin(), items.end(), [&](const MenuItem* item) { return item->key() == key; });
  return found == items.end() ? nullptr : *found;
}

// Runs in the view, and not once the list has gone with it.
void add_entry(PassingMenu& menu, const ListEntry& entry, const std::function<void()>& run) {
  QAction* const action = menu.add_choice(entry.caption, run);
  action->setCheckable(entry.checkable);
  action->setChecked(entry.checked);
}

}  // namespace

bool FormView::choose_by_key(ListView& list, MenuKey key) {
  const bool known =
      std::any_of(menus_.begin(), menus_.end(), [&](const PopupMenu* menu) { return item_of(*menu, key); });
  if (!known) return false;
  if (acts_ > 0) return true;
  bool has_command = false;
  act([&] {
    {
      const QScopedValueRollback<bool> unseen(menus_unseen_, true);
      list.right_click(list.selected());
    }
    for (PopupMenu* menu : std::vector<PopupMenu*>(menus_)) {
      if (!menu->is_open()) continue;
      MenuItem* const item = item_of(*menu, key);
      has_command = has_command || item != nullptr;
      if (item != nullptr && item->enabled() && item->visible()) {
        item->choose();
      } else {
        menu->dismiss();
      }
    }
  });
  return has_command;
}

void FormView::right_click(ListView& list, std::optional<std::size_t> row, const QPoint& place,
                           const std::vector<ListEntry>& own) {
  if (acts_ > 0) return;
  const QPointer<FormView> self(this);
  menu_place_ = place;
  list_entries_ = row && row_entries ? row_entries(list.tag(*row)) : std::vector<ListEntry>();
  list_entries_.insert(list_entries_.end(), own.begin(), own.end());
  const std::vector<ListEntry> entries = list_entries_;
  command([&] { list.right_click(row); });
  if (!self || released_ || acts_ > 0) return;
  const auto opened = [](const PopupMenu* menu) { return menu->is_open(); };
  if (std::any_of(menus_.begin(), menus_.end(), opened)) return;
  list_entries_.clear();
  if (!entries.empty()) show_entries(place, entries);
}

void FormView::show_entries(const QPoint& place, const std::vector<ListEntry>& entries) {
  if (released_ || acts_ > 0 || shown_menu_) return;
  shown_menu_ = new PassingMenu(this);
  for (const ListEntry& entry : entries) add_entry(*shown_menu_, entry, entry.run);
  shown_menu_->popup(place);
}

// One menu at a time, and none over a dialog of the form.
void FormView::show_menu(PopupMenu& menu) {
  const std::vector<ListEntry> own = std::exchange(list_entries_, {});
  if (!menu.is_open() || released_) return;
  const auto dismiss = [this, &menu] { act([&menu] { menu.dismiss(); }); };
  if (acts_ > 0 || shown_menu_) {
    dismiss();
    return;
  }
  auto* const shown = new PassingMenu(this);
  for (MenuItem* item : menu.items()) {
    if (!item->visible()) continue;
    const QString caption = without_mnemonic(QString::fromStdString(item->caption())) + key_name(item->key());
    shown->add_choice(caption, [this, item] { act([item] { item->choose(); }); })->setEnabled(item->enabled());
  }
  if (!own.empty()) shown->addSeparator();
  for (const ListEntry& entry : own) {
    add_entry(*shown, entry, [dismiss, run = entry.run] {
      dismiss();
      run();
    });
  }
  shown->on_dismissed(dismiss);
  shown_menu_ = shown;
  shown->popup(menu_place_.isNull() ? QCursor::pos() : menu_place_);
  menu_place_ = {};
}

}  // namespace quor
