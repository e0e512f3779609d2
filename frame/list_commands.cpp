#include "frame/list_commands.h"

#include <utility>

namespace velmora {

ListCommands::ListCommands(quor::ListView& list, const Menu& menu, const Codes& codes, Handler handler)
    : list_(list), menu_(menu), codes_(codes), handler_(std::move(handler)) {
  list.on_right_click = [this] { open_menu(); };
  list.on_double_click = [this] {
    command_ = codes_.edit;
    run();
  };
  menu.add.on_choose = [this] { command_ = codes_.add; };
  menu.edit.on_choose = [this] { command_ = codes_.edit; };
  menu.remove.on_choose = [this] { command_ = codes_.remove; };
  menu.menu.on_close = [this] { run(); };
}

void ListCommands::open_menu() {
  if (!gate_.is_open()) return;
  const bool on_item = available_ && !list_.selected_tag().empty();
  menu_.add.set_enabled(available_);
  menu_.edit.set_enabled(on_item);
  menu_.remove.set_enabled(on_item);
  command_.clear();
  menu_.menu.open();
}

void ListCommands::run() {
  const std::string command = std::exchange(command_, {});
  if (!available_ || command.empty()) return;
  const std::string tag = command == codes_.add ? "" : list_.selected_tag();
  if (command == codes_.add || !tag.empty()) gate_.run([&] { handler_(command, tag); });
}

}  // namespace velmora
