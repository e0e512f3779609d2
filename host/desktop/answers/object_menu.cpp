#include "host/desktop/answers/object_menu.h"

#include "host/desktop/edge/mnemonics.h"

namespace quor {

// Qt shows no separator at an end.
void add_entries(PassingMenu& menu, const std::vector<MenuEntry>& entries, const MenuPlace& place,
                 const ChooseEntry& choose) {
  for (const MenuEntry& entry : entries) {
    if (is_separator(entry)) {
      menu.addSeparator();
      continue;
    }
    QString caption = without_mnemonic(QString::fromStdString(entry.Caption));
    if (entry.Purpose == MenuPurpose::kNew) caption += "\tIns";
    if (entry.Purpose == MenuPurpose::kDelete) caption += "\tDel";
    menu.add_choice(caption, [choose, place, entry] { choose(place, entry); });
  }
}

}  // namespace quor
