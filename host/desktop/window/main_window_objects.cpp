// What the main window does with objects: their menus, their editors, the desk top.
#include <QStatusBar>

#include "host/desktop/answers/object_names.h"
#include "host/desktop/window/main_window.h"

namespace quor {

namespace {

constexpr int kMessageTime = 5000;  // ms

}  // namespace

// ---- menus of objects, types and groups

void MainWindow::show_menu(const MenuPlace& place, const QPoint& at, bool on_desk_top,
                           const std::vector<ListEntry>& own) {
  auto menu = std::make_unique<PassingMenu>(this);
  act([&] {
    add_entries(*menu, menu_of(application_, place), place,
                [this](const MenuPlace& chosen, const MenuEntry& entry) { choose(chosen, entry); });
  });
  if (on_desk_top) {
    menu->addSeparator();
    menu->add_choice("Nuimti nuo darbo stalo\tDel", [this, key = place.object] { take_off_desk_top(key); });
  }
  if (!own.empty() && !menu->isEmpty() && !menu->actions().last()->isSeparator()) menu->addSeparator();
  for (const ListEntry& entry : own) menu->add_choice(entry.caption, entry.run);
  if (!menu->isEmpty()) menu.release()->popup(at);
}

// The plug-ins' entry that opens an object says that it puts it on the desk top, too: of a company that may only be
// read, it opens it. The host's own types have an entry for each.
void MainWindow::choose(const MenuPlace& place, const MenuEntry& entry) {
  act([&] {
    click(place, entry, *tabs_);
    const bool opens = entry.Purpose == MenuPurpose::kOpen && !place.object.empty();
    if (!opens || application_.host_type(place.object_type) != nullptr ||
        object_name(application_, place.object).isEmpty())
      return;
    if (application_.company().database().may_write()) application_.place_on_desk_top(place.object, nullptr);
  });
}

void MainWindow::carry_out(const MenuPlace& place, const MenuEntry& entry) {
  act([&] { click(place, entry, *tabs_); });
}

void MainWindow::carry_out_beside(const MenuPlace& place, const MenuEntry& entry) {
  act([&] { click(place, entry, *beside_); });
}

void MainWindow::carry_out(const MenuPlace& place, MenuPurpose purpose) {
  act([&] {
    if (const auto entry = wanted_entry(application_, place, purpose)) click(place, *entry, *tabs_);
  });
}

// An object has one editor; a preview, which is none, may be open in either tabs.
void MainWindow::click(const MenuPlace& place, const MenuEntry& entry, EditorTabs& tabs) {
  const bool opens = entry.Purpose == MenuPurpose::kOpen;
  const bool on_group = place.object.empty() && place != place_of_type(place.object_type);
  const QString opened_by = on_group ? QString::fromStdString(place.object_type + ' ' + entry.Identifier) : QString();
  for (EditorTabs* const each : all_tabs()) {
    if (opens && each->bring_forward(place.object)) return;
  }
  if (tabs.bring_forward_opened_by(opened_by)) return;
  const ClickResult result = click_entry(application_, place, entry);
  switch (result.Action) {
    case ClickAction::kShowForm:
      // What opens an object shows it; what else shows a form of a type, makes a new object. A group has none.
      if (result.EditorForm) {
        tabs.open(result.EditorForm, on_group ? "" : opens ? place.object : place.object_type, opened_by);
      }
      break;
    case ClickAction::kRemoved:
      if (Form* const editor = application_.open_objects().find(place.object)) editor->close_box();
      application_.remove_from_desk_top(place.object);
      object_changed(place.object_type);
      break;
    case ClickAction::kNothing:
      break;
  }
}

// ---- the desk top

void MainWindow::put_on_desk_top(const std::string& object, const std::shared_ptr<Form>& editor) {
  desk_top_->refresh();
  if (editor) tabs_->open(editor, object, {});
  statusBar()->showMessage("Padėta ant darbo stalo: " + object_name(application_, object), kMessageTime);
}

void MainWindow::take_off_desk_top(const std::string& object) {
  act([&] {
    application_.remove_from_desk_top(object);
    desk_top_->refresh();
  });
}

}  // namespace quor
