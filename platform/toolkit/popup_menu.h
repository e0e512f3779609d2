// A pop-up menu and its items. The form opens the menu, the user chooses an item or dismisses it.
//
//   closed -> open      by the form, mostly in a list's on_right_click
//   open -> closed      by the user: a choice runs the item's on_choose, then the menu's on_close; dismissing it runs
//                       on_close alone. It is closed before either runs: they may show a dialog.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/toolkit/captioned.h"

namespace quor {

class MenuItem;

class PopupMenu : public Control {
 public:
  PopupMenu(ControlSet& owner, std::string name) : Control(owner, std::move(name)) {}
  // In the order in which they are shown.
  const std::vector<MenuItem*>& items() const { return items_; }
  bool is_open() const { return open_; }
  void open() { put(open_, true, ControlChange::kContent); }
  void accept(ControlVisitor& visitor) override;

  // The user goes elsewhere.
  void dismiss();
  std::function<void()> on_close;

 private:
  friend class MenuItem;

  std::vector<MenuItem*> items_;
  bool open_ = false;
};

// The usual key of the item's command in the list that the menu belongs to.
enum class MenuKey { kNone, kInsert, kEnter, kDelete };

class MenuItem : public Captioned {
 public:
  MenuItem(ControlSet& owner, PopupMenu& menu, std::string name, std::string caption, MenuKey key = MenuKey::kNone);
  MenuKey key() const { return key_; }
  void accept(ControlVisitor& visitor) override;

  // The user chooses it: nothing happens while the menu is closed.
  void choose();
  std::function<void()> on_choose;

 private:
  PopupMenu& menu_;
  const MenuKey key_;
};

}  // namespace quor
