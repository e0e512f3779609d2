// The three commands of an editor's list: a new item, the change of one, its deletion. They come from the list's pop-up
// menu, which opens by a right click, and all reach one handler as a command text; a double click means the change.
// They do not nest: while one runs, with its question or dialog open, the next is dropped and the menu does not open.
#pragma once

#include <functional>
#include <string>

#include "frame/command_gate.h"
#include "platform/toolkit/list_view.h"
#include "platform/toolkit/popup_menu.h"

namespace velmora {

class ListCommands {
 public:
  // The texts by which the editor knows its commands.
  struct Codes {
    const char* add;
    const char* edit;
    const char* remove;
  };
  struct Menu {
    quor::PopupMenu& menu;
    quor::MenuItem& add;
    quor::MenuItem& edit;
    quor::MenuItem& remove;
  };
  // Takes a command, and the tag of the item that it is for: "" for `add`. The others only come for an item with a tag.
  using Handler = std::function<void(const std::string& command, const std::string& tag)>;

  // Takes the handlers of the list and of the menu, all of which it must not outlive.
  ListCommands(quor::ListView& list, const Menu& menu, const Codes& codes, Handler handler);
  ListCommands(const ListCommands&) = delete;
  ListCommands& operator=(const ListCommands&) = delete;

  // Without it the menu opens with every item off, and a double click does nothing.
  void set_available(bool available) { available_ = available; }

 private:
  void open_menu();
  void run();

  quor::ListView& list_;
  const Menu menu_;
  const Codes codes_;
  const Handler handler_;
  bool available_ = true;
  std::string command_;  // chosen, and not run yet
  CommandGate gate_;
};

}  // namespace velmora
